#include "graphics/model/Base64.h"

#include <array>
#include <cstdint>

namespace graphics {

namespace {

constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

constexpr std::array<std::uint8_t, 256> kValues = [] {
  constexpr std::uint8_t kNoLetter = 128;
  std::array<std::uint8_t, 256> values{};
  values.fill(kNoLetter);
  for (std::size_t i = 0; i < kAlphabet.size(); ++i)
    values[static_cast<unsigned char>(kAlphabet[i])] = static_cast<std::uint8_t>(i);
  return values;
}();

/// Three bytes from the values of up to four characters; values that are missing are 0.
std::array<unsigned char, 3> Join(std::string_view four) {
  std::array<unsigned, 4> v{};
  for (std::size_t i = 0; i < four.size(); ++i) v[i] = kValues[static_cast<unsigned char>(four[i])];
  return {static_cast<unsigned char>(v[0] << 2 | v[1] >> 4), static_cast<unsigned char>(v[1] << 4 | v[2] >> 2),
          static_cast<unsigned char>(v[2] << 6 | v[3])};
}

}  // namespace

std::string EncodeBase64(std::span<const unsigned char> bytes) {
  std::string text;
  text.reserve((bytes.size() * 8 + 5) / 6);
  unsigned pending = 0;
  unsigned pendingBits = 0;
  for (const unsigned char byte : bytes) {
    pending = (pending << 8 | byte) & 0xFFFF;
    pendingBits += 8;
    while (pendingBits >= 6) {
      pendingBits -= 6;
      text += kAlphabet[pending >> pendingBits & 63];
    }
  }
  if (pendingBits > 0) text += kAlphabet[pending << (6 - pendingBits) & 63];
  return text;
}

std::vector<unsigned char> DecodeBase64(std::string_view text) {
  text = text.substr(0, text.find_last_not_of(" \t\n\v\f\r") + 1);
  const std::size_t size = text.size() / 4 * 3 + text.size() % 4 * 6 / 8;
  std::vector<unsigned char> bytes;
  bytes.reserve(size + 3);
  for (std::size_t i = 0; i < text.size(); i += 4) {
    const auto three = Join(text.substr(i, 4));
    bytes.insert(bytes.end(), three.begin(), three.end());
  }
  bytes.resize(size);
  return bytes;
}

std::vector<unsigned char> DecodeBase64Text(const wxString& text) {
  return DecodeBase64(text.ToStdString(wxConvLibc));
}

}  // namespace graphics
