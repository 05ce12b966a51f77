#pragma once

#include "foundation/CharEncodingBase.h"

namespace orlo {

/// Reading is strict about each sequence by itself: a lead byte whose payload bits are all zero (0xC0, 0xE0, 0xF0) is
/// invalid, which leaves U+0800 to U+0FFF and U+10000 to U+3FFFF without a readable form; so are a lone continuation
/// byte, a lead of five or more one bits, and values from 0x110000 on. Surrogates and the lead 0xC1 pass.
class CUTF8CharEncoding : public TTwoWayCharEncoding<CUTF8CharEncoding> {
public:
  using Unit = std::uint8_t;
  static constexpr std::uint32_t kId = kUTF8Tag;
  static constexpr const char* kName = "UTF-8";
  static constexpr int kMaxCharSize = 4;

  static int read(char32_t& codePoint, const unsigned char* buffer, int size, int pos) {
    codePoint = buffer[pos];
    return codePoint < 0x80 ? pos + 1 : readSequence(codePoint, buffer, size, pos);
  }
  static int readBackwards(char32_t& codePoint, const unsigned char* buffer, int pos);
  static int sizeOf(char32_t codePoint);
  static void write(char32_t codePoint, unsigned char* place);

  int countChars(const unsigned char* buffer, int size, int pos) const override;

private:
  static int readSequence(char32_t& codePoint, const unsigned char* buffer, int size, int pos);
};

}  // namespace orlo
