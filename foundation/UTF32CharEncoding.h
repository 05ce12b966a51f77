#pragma once

#include "foundation/CharEncodingBase.h"

namespace orlo {

/// In the byte order of the machine. Values from 0x110000 on are invalid, surrogates pass. Characters start at
/// multiples of four only.
class CUTF32CharEncoding : public TTwoWayCharEncoding<CUTF32CharEncoding> {
public:
  using Unit = char32_t;
  static constexpr std::uint32_t kId = kUTF32Tag;
  static constexpr const char* kName = "UTF-32";
  static constexpr int kMaxCharSize = 4;

  static int read(char32_t& codePoint, const unsigned char* buffer, int size, int pos) {
    if (pos % 4 != 0 || size - pos < 4) return -1;
    char32_t unit;
    std::memcpy(&unit, buffer + pos, sizeof unit);
    if (sizeOf(unit) == 0) return -1;
    codePoint = unit;
    return pos + 4;
  }
  static int readBackwards(char32_t& codePoint, const unsigned char* buffer, int pos) {
    return pos % 4 == 0 && read(codePoint, buffer, pos, pos - 4) == pos ? pos - 4 : -1;
  }
  static int sizeOf(char32_t codePoint) { return codePoint < 0x110000 ? 4 : 0; }
  static void write(char32_t codePoint, unsigned char* place) { std::memcpy(place, &codePoint, sizeof codePoint); }
};

}  // namespace orlo
