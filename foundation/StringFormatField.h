#pragma once

#include "foundation/String.h"

#include <array>
#include <cstdint>

namespace orlo {

/// One field of a format text: "%", flags, width, precision, size prefix and conversion letter.
struct CStringFormatField {
  enum class Kind : std::int32_t { none = 0, integer = 1, floatingPoint = 2, character = 3, string = 4 };

  /// Digits and padding beyond that are refused, so that no format decides how much memory is taken.
  static constexpr int maxSize = 65535;
  static constexpr int maxFlags = 5;

  /// Reads the field behind the "%" at position, and moves position behind it. Throws CInvalidArgError.
  static CStringFormatField parse(const String& format, CStringPos& position);

  bool isSigned() const { return conversion == 'd' || conversion == 'i'; }
  /// Throws if width or precision is beyond maxSize. The sign of a width does not count.
  void checkSize() const;

  Kind kind = Kind::none;
  char conversion = 0;
  /// "*" stands in the field's place, and the value is still to come.
  bool widthPending = false;
  bool precisionPending = false;
  /// -1 if absent.
  std::int32_t width = -1;
  std::int32_t precision = -1;
  bool zeroPad = false;
  bool leftAlign = false;
  bool alternate = false;
  bool plus = false;
  bool space = false;
  /// The field for the runtime library, from the "%" on, with "*" for width and precision.
  std::array<char, 1 + maxFlags + sizeof("*.*f")> spec{'%'};
};

/// Throws the CInvalidArgError of all format faults.
[[noreturn]] void throwFormatError(const char* message);

}  // namespace orlo
