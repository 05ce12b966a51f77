#include "foundation/UTF8CharEncoding.h"

#include "foundation/Singleton.h"

#include <bit>

namespace orlo {

namespace {

bool isContinuation(unsigned char byte) {
  return (byte & 0xC0) == 0x80;
}

}  // namespace

int CUTF8CharEncoding::readSequence(char32_t& codePoint, const unsigned char* buffer, int size, int pos) {
  const unsigned char lead = buffer[pos];
  const int length = std::countl_one(lead);
  if (length < 2 || length > 4 || size - pos < length) return -1;
  char32_t value = lead & (0x7Fu >> length);
  if (value == 0) return -1;
  for (int i = 1; i < length; ++i) {
    const unsigned char byte = buffer[pos + i];
    if (!isContinuation(byte)) return -1;
    value = value << 6 | (byte & 0x3Fu);
  }
  if (value >= 0x110000) return -1;
  codePoint = value;
  return pos + length;
}

int CUTF8CharEncoding::countChars(const unsigned char* buffer, int size, int pos) const {
  if (pos < 0 || pos > size) return -1;
  int count = 0;
  char32_t codePoint;
  while (pos < size) {
    // Eight characters of ASCII at a time.
    for (std::uint64_t block; size - pos >= 8; pos += 8, count += 8) {
      std::memcpy(&block, buffer + pos, 8);
      if (block & 0x8080808080808080) break;
    }
    pos = decode(codePoint, buffer, size, pos);
    if (pos < 0) break;
    ++count;
  }
  return count;
}

int CUTF8CharEncoding::readBackwards(char32_t& codePoint, const unsigned char* buffer, int pos) {
  int start = pos - 1;
  while (start > 0 && pos - start < kMaxCharSize && isContinuation(buffer[start])) --start;
  return read(codePoint, buffer, pos, start) == pos ? start : -1;
}

int CUTF8CharEncoding::sizeOf(char32_t codePoint) {
  if (codePoint < 0x80) return 1;
  if (codePoint < 0x800) return 2;
  if (codePoint < 0x10000) return 3;
  return codePoint < 0x110000 ? 4 : 0;
}

void CUTF8CharEncoding::write(char32_t codePoint, unsigned char* place) {
  const int size = sizeOf(codePoint);
  for (int i = size - 1; i > 0; --i, codePoint >>= 6) place[i] = static_cast<unsigned char>(0x80 | (codePoint & 0x3F));
  const char32_t mark = size == 1 ? 0 : 0xF00u >> size;
  place[0] = static_cast<unsigned char>(mark | codePoint);
}

P<ICharEncoding>& getUTF8CharEncoding() {
  static TSingleton<ICharEncoding> singleton;
  return singleton.get([] { return P<ICharEncoding>(makeObject<CUTF8CharEncoding>()); });
}

}  // namespace orlo
