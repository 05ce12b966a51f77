#pragma once

#include "foundation/CharEncodingBase.h"

namespace orlo {

/// In the byte order of the machine. A high and a low surrogate behind each other are one character; a lone surrogate
/// passes as a character of its own, as in the other encodings. Characters start at even positions only.
class CUTF16CharEncoding : public TTwoWayCharEncoding<CUTF16CharEncoding> {
public:
  using Unit = char16_t;
  static constexpr std::uint32_t kId = kUTF16Tag;
  static constexpr const char* kName = "UTF-16";
  static constexpr int kMaxCharSize = 4;

  static int read(char32_t& codePoint, const unsigned char* buffer, int size, int pos) {
    if (pos % 2 != 0 || size - pos < 2) return -1;
    codePoint = unitAt(buffer, pos);
    if (isHigh(codePoint) && size - pos >= 4) {
      const char32_t low = unitAt(buffer, pos + 2);
      if (isLow(low)) {
        codePoint = joined(codePoint, low);
        return pos + 4;
      }
    }
    return pos + 2;
  }

  static int readBackwards(char32_t& codePoint, const unsigned char* buffer, int pos) {
    if (pos % 2 != 0) return -1;
    codePoint = unitAt(buffer, pos - 2);
    if (isLow(codePoint) && pos >= 4) {
      const char32_t high = unitAt(buffer, pos - 4);
      if (isHigh(high)) {
        codePoint = joined(high, codePoint);
        return pos - 4;
      }
    }
    return pos - 2;
  }

  static int sizeOf(char32_t codePoint) {
    if (codePoint < 0x10000) return 2;
    return codePoint < 0x110000 ? 4 : 0;
  }

  static void write(char32_t codePoint, unsigned char* place) {
    if (codePoint >= 0x10000) {
      put(0xD800 + ((codePoint - 0x10000) >> 10), place);
      put(0xDC00 + (codePoint & 0x3FF), place + 2);
    } else {
      put(codePoint, place);
    }
  }

private:
  static char16_t unitAt(const unsigned char* buffer, int pos) {
    char16_t unit;
    std::memcpy(&unit, buffer + pos, sizeof unit);
    return unit;
  }
  static void put(char32_t value, unsigned char* place) {
    const char16_t unit = static_cast<char16_t>(value);
    std::memcpy(place, &unit, sizeof unit);
  }
  static bool isHigh(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
  static bool isLow(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }
  static char32_t joined(char32_t high, char32_t low) { return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00); }
};

}  // namespace orlo
