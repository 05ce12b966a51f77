#pragma once

#include "foundation/CharEncodingBase.h"

namespace orlo {

class CLatin1CharEncoding : public TTwoWayCharEncoding<CLatin1CharEncoding> {
public:
  using Unit = std::uint8_t;
  static constexpr std::uint32_t kId = kLatin1Tag;
  static constexpr const char* kName = "Latin-1";
  static constexpr int kMaxCharSize = 1;

  static int read(char32_t& codePoint, const unsigned char* buffer, int, int pos) {
    codePoint = buffer[pos];
    return pos + 1;
  }
  static int readBackwards(char32_t& codePoint, const unsigned char* buffer, int pos) {
    codePoint = buffer[pos - 1];
    return pos - 1;
  }
  static int sizeOf(char32_t codePoint) { return codePoint < 0x100 ? 1 : 0; }
  static void write(char32_t codePoint, unsigned char* place) { *place = static_cast<unsigned char>(codePoint); }
};

}  // namespace orlo
