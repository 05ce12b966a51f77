#include "host/Base64.h"

#include <array>
#include <cstdint>

namespace host {

namespace {

constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t noLetter = 0xFF;

constexpr std::array<std::uint8_t, 256> values = [] {
  std::array<std::uint8_t, 256> result{};
  result.fill(noLetter);
  for (std::size_t i = 0; i < alphabet.size(); ++i)
    result[static_cast<unsigned char>(alphabet[i])] = static_cast<std::uint8_t>(i);
  return result;
}();

}  // namespace

std::string toBase64(std::string_view bytes) {
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

Decoded fromBase64(std::string_view text) {
  Decoded result;
  result.bytes.reserve(text.size() / 4 * 3 + 3);
  std::uint32_t bits = 0;
  int count = 0;
  for (const char character : text) {
    const std::uint8_t value = values[static_cast<unsigned char>(character)];
    if (value == noLetter) break;
    ++result.length;
    bits = (bits << 6 | value) & 0xFFFF;
    count += 6;
    if (count < 8) continue;
    count -= 8;
    result.bytes.push_back(static_cast<unsigned char>(bits >> count));
  }
  return result;
}

}  // namespace host
