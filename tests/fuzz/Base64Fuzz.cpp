// Compares the decoder with a plain one that works bit by bit, and takes what was encoded back.

#include "graphics/model/Base64.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

unsigned valueOf(unsigned char c) {
  if (c >= 'A' && c <= 'Z') return c - 'A';
  if (c >= 'a' && c <= 'z') return 26U + c - 'a';
  if (c >= '0' && c <= '9') return 52U + c - '0';
  if (c == '+') return 62;
  if (c == '/') return 63;
  return 128;
}

bool isSpace(unsigned char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

// The low six bits of the n-th character of four stand from bit 6 n of the three bytes on, and what is above them
// before that.
std::vector<unsigned char> decodeBitByBit(std::string_view text) {
  while (!text.empty() && isSpace(static_cast<unsigned char>(text.back()))) text.remove_suffix(1);
  std::vector<unsigned char> bytes(text.size() * 6 / 8);
  for (std::size_t n = 0; n < text.size(); ++n) {
    const unsigned value = valueOf(static_cast<unsigned char>(text[n]));
    for (std::size_t bit = 0; bit < 8; ++bit) {
      const std::size_t end = n % 4 * 6 + 6;
      if (!(value >> bit & 1U) || bit >= end) continue;
      const std::size_t at = n / 4 * 24 + end - 1 - bit;
      if (at / 8 < bytes.size()) bytes[at / 8] |= static_cast<unsigned char>(0x80U >> at % 8);
    }
  }
  return bytes;
}

void require(bool condition) {
  if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  require(graphics::DecodeBase64(text) == decodeBitByBit(text));

  const std::vector<unsigned char> bytes(data, data + size);
  const std::string encoded = graphics::EncodeBase64(bytes);
  require(encoded.size() == (8 * size + 5) / 6);
  require(graphics::DecodeBase64(encoded) == bytes);
  return 0;
}
