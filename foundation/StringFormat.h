#pragma once

#include "foundation/Object.h"
#include "foundation/StringFormatField.h"
#include "foundation/TextBuilder.h"

#include <concepts>
#include <type_traits>

namespace orlo {

template <class T>
concept CFormattedInteger =
    std::is_integral_v<T> && !std::same_as<T, bool> && !std::same_as<T, char> && !std::same_as<T, wchar_t> &&
    !std::same_as<T, char8_t> && !std::same_as<T, char16_t> && !std::same_as<T, char32_t>;

/// Fills the fields of a format text one by one, checking each value against its field:
///
///     CStringFormat("%s has %5.1f MB").push(name).push(size).getString()
///
/// Fields are those of printf, but for what follows. A value knows its size, so "l", "ll", "h", "hh", "L", "z", "j",
/// "t" and "I64" mean nothing. Widths and precisions count characters. "0" pads integers that have a precision too, and
/// texts; "#" puts "0", "0x" or "0X" in front of every number. A negative value for the width "*" pads floating point
/// numbers and ASCII characters on the right and nothing else. "a", "n" and "p" are no conversions.
///
/// Every fault throws CInvalidArgError: a format that is none, a value that does not fit its field, a width of more
/// than 65535 or as many digits. To be used once, by one thread.
class CStringFormat : public CObject {
public:
  explicit CStringFormat(const String& format);

  /// An integer, the code of a character, or the value of a "*": first the width, then the precision. "d" and "i"
  /// show a value that is not signed as it is; the other conversions show the bits of a negative one.
  template <CFormattedInteger T>
  CStringFormat& push(T value, bool isSigned = std::is_signed_v<T>) {
    using Wide = decltype(+value);  // what is smaller than int becomes one, as an argument of C does
    const std::uint64_t bits = static_cast<std::make_unsigned_t<Wide>>(value);
    const std::int64_t number = static_cast<std::make_signed_t<Wide>>(value);
    const bool negative = isSigned && number < 0;
    pushInteger({bits, negative ? 0 - static_cast<std::uint64_t>(number) : bits, negative});
    return *this;
  }
  CStringFormat& push(double value);
  CStringFormat& push(char32_t codePoint);
  CStringFormat& push(const CTextView& text);

  /// The finished text, in UTF-16, which loses no character of its parts. Throws CInvalidObjectStateError as long as a
  /// field waits for its value.
  String getString() const;

private:
  struct CInteger {
    std::uint64_t bits;
    std::uint64_t magnitude;
    bool negative;
  };

  void pushInteger(const CInteger& value);
  bool fillPending(const CInteger& value);
  void mustBe(CStringFormatField::Kind kind) const;

  void parseOn();
  void appendInteger(const CInteger& value);
  void appendDouble(double value);
  void appendString(const CTextView& text);
  void fill(std::size_t count, char character);

  String format_;
  CStringPos position_;
  CTextBuilder result_;
  CStringFormatField field_;
};

}  // namespace orlo
