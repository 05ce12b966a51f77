#include "host/Base64.h"

#include <cstdint>

namespace host {

std::string toBase64(std::string_view bytes) {
  static constexpr char alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  text.reserve((bytes.size() * 8 + 5) / 6);
  std::uint32_t bits = 0;
  int count = 0;
  for (const char character : bytes) {
    bits = (bits << 8 | static_cast<unsigned char>(character)) & 0xFFFF;
    for (count += 8; count >= 6; count -= 6) text += alphabet[bits >> (count - 6) & 0x3F];
  }
  if (count > 0) text += alphabet[bits << (6 - count) & 0x3F];
  return text;
}

}  // namespace host
