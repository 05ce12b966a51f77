#pragma once

#include "foundation/CharEncodingBase.h"

#include <climits>

namespace orlo {

/// The multibyte encoding of the C runtime's current locale, whatever that is at the time of the call. Each character
/// is read by itself, without a shift state. It cannot be read from the end, not even where a character is one byte.
class CCPCharEncoding : public TCharEncoding<CCPCharEncoding> {
public:
  using Unit = std::uint8_t;
  static constexpr std::uint32_t kId = kCodePageTag;
  static constexpr const char* kName = "CodePage";
  static constexpr int kMaxCharSize = MB_LEN_MAX;

  static int read(char32_t& codePoint, const unsigned char* buffer, int size, int pos);
  static int sizeOf(char32_t codePoint);
  static void write(char32_t codePoint, unsigned char* place);

  /// That of the current locale.
  int getMaxCharSize() const override;

  bool canWalkBackwards() const override { return false; }
  int findValidBackwards(const unsigned char* buffer, int size, int pos) const override;
  int decodeStrictBackwards(char32_t& codePoint, const unsigned char* buffer, int size, int pos) const override;
  int decodeBackwards(char32_t& codePoint, const unsigned char* buffer, int size, int pos) const override;
  int decodeRunBackwards(char32_t* codePoints, int* positions, int maxCount, int& count, const unsigned char* buffer,
                         int size, int pos) const override;

private:
  [[noreturn]] void throwNotImplemented(const char* method) const;
};

}  // namespace orlo
