#include "foundation/StandardUTF8.h"

#include "foundation/UTF8CharEncoding.h"

#include <bit>

namespace orlo {

int standardUTF8Length(unsigned char lead) {
  if (lead < 0x80) return 1;
  return lead >= 0xC2 && lead <= 0xF4 ? std::countl_one(lead) : 0;
}

int readStandardUTF8(char32_t& codePoint, const unsigned char* bytes, int size, int pos) {
  if (pos < 0 || pos >= size) return -1;
  const unsigned char lead = bytes[pos];
  const int length = standardUTF8Length(lead);
  if (length == 0 || size - pos < length) return -1;
  char32_t value = length == 1 ? lead : lead & (0x7Fu >> length);
  for (int i = 1; i < length; ++i) {
    const unsigned char byte = bytes[pos + i];
    if ((byte & 0xC0) != 0x80) return -1;
    value = value << 6 | (byte & 0x3Fu);
  }
  const bool isSurrogate = value >= 0xD800 && value < 0xE000;
  if (isSurrogate || value >= 0x110000 || CUTF8CharEncoding::sizeOf(value) != length) return -1;
  codePoint = value;
  return pos + length;
}

int writeStandardUTF8(char32_t codePoint, unsigned char (&bytes)[4]) {
  CUTF8CharEncoding::write(codePoint, bytes);
  return CUTF8CharEncoding::sizeOf(codePoint);
}

}  // namespace orlo
