#include "graphics/model/PictureSize.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace graphics {

namespace {

using CBytes = std::span<const unsigned char>;

bool StartsWith(CBytes bytes, std::string_view signature) {
  return bytes.size() >= signature.size() &&
         std::equal(signature.begin(), signature.end(), bytes.begin(),
                    [](char a, unsigned char b) { return static_cast<unsigned char>(a) == b; });
}

std::uint32_t BigEndian(CBytes bytes, std::size_t at, std::size_t count) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < count; ++i) value = value << 8 | bytes[at + i];
  return value;
}

std::uint32_t LittleEndian(CBytes bytes, std::size_t at, std::size_t count) {
  std::uint32_t value = 0;
  for (std::size_t i = count; i > 0; --i) value = value << 8 | bytes[at + i - 1];
  return value;
}

CDoubleSize SizeOf(double width, double height) {
  return {std::abs(width), std::abs(height)};
}

std::optional<CDoubleSize> FindPngSize(CBytes bytes) {
  if (bytes.size() < 24) return {};
  return SizeOf(BigEndian(bytes, 16, 4), BigEndian(bytes, 20, 4));
}

std::optional<CDoubleSize> FindBmpSize(CBytes bytes) {
  if (bytes.size() < 26) return {};
  constexpr std::uint32_t kOldHeader = 12;
  if (LittleEndian(bytes, 14, 4) == kOldHeader) return SizeOf(LittleEndian(bytes, 18, 2), LittleEndian(bytes, 20, 2));
  return SizeOf(static_cast<std::int32_t>(LittleEndian(bytes, 18, 4)),
                static_cast<std::int32_t>(LittleEndian(bytes, 22, 4)));
}

std::optional<CDoubleSize> FindGifSize(CBytes bytes) {
  if (bytes.size() < 10) return {};
  return SizeOf(LittleEndian(bytes, 6, 2), LittleEndian(bytes, 8, 2));
}

bool IsStartOfFrame(unsigned marker) {
  return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

bool HasNoLength(unsigned marker) {
  return marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8);
}

std::optional<CDoubleSize> FindJpegSize(CBytes bytes) {
  std::size_t at = 2;
  while (at + 9 <= bytes.size()) {
    if (bytes[at] != 0xFF) {
      ++at;
      continue;
    }
    const unsigned marker = bytes[at + 1];
    if (IsStartOfFrame(marker)) return SizeOf(BigEndian(bytes, at + 7, 2), BigEndian(bytes, at + 5, 2));
    if (marker == 0xFF)
      ++at;
    else
      at += 2 + (HasNoLength(marker) ? 0 : BigEndian(bytes, at + 2, 2));
  }
  return {};
}

}  // namespace

std::optional<CDoubleSize> FindPictureSize(CBytes bytes) {
  if (StartsWith(bytes, "\x89PNG")) return FindPngSize(bytes);
  if (StartsWith(bytes, "\xFF\xD8")) return FindJpegSize(bytes);
  if (StartsWith(bytes, "BM")) return FindBmpSize(bytes);
  if (StartsWith(bytes, "GIF8")) return FindGifSize(bytes);
  return {};
}

}  // namespace graphics
