#include "graphics/model/PictureHeader.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace graphics {

namespace {

using CBytes = std::span<const unsigned char>;

bool StartsWith(CBytes bytes, std::string_view signature) {
  return bytes.size() >= signature.size() &&
         std::equal(signature.begin(), signature.end(), bytes.begin(),
                    [](char a, unsigned char b) { return static_cast<unsigned char>(a) == b; });
}

/// What lies beyond the end reads as nothing.
CBytes From(CBytes bytes, std::size_t at) {
  return at < bytes.size() ? bytes.subspan(at) : CBytes();
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

std::optional<CPictureHeader> FindPng(CBytes bytes) {
  if (bytes.size() < 24) return {};
  return CPictureHeader{wxBITMAP_TYPE_PNG, BigEndian(bytes, 16, 4), BigEndian(bytes, 20, 4)};
}

/// The header that follows the file header of a BMP, and stands alone in an ICO.
std::optional<CPictureHeader> FindDib(CBytes bytes) {
  if (bytes.size() < 12) return {};
  constexpr std::uint32_t kOldHeader = 12;
  constexpr std::uint32_t kRunLengths8 = 1;
  constexpr std::uint32_t kRunLengths4 = 2;
  if (LittleEndian(bytes, 0, 4) == kOldHeader)
    return CPictureHeader{wxBITMAP_TYPE_BMP, LittleEndian(bytes, 4, 2), LittleEndian(bytes, 6, 2)};
  if (bytes.size() < 20) return {};
  const std::uint32_t compression = LittleEndian(bytes, 16, 4);
  if (compression == kRunLengths8 || compression == kRunLengths4) return {};
  // Negative heights are those of pictures with the top row first.
  const auto magnitude = [&](std::size_t at) {
    return std::abs(std::int64_t{static_cast<std::int32_t>(LittleEndian(bytes, at, 4))});
  };
  return CPictureHeader{wxBITMAP_TYPE_BMP, magnitude(4), magnitude(8)};
}

std::optional<CPictureHeader> FindBmp(CBytes bytes) {
  return FindDib(From(bytes, 14));
}

bool IsStartOfFrame(unsigned marker) {
  return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

bool HasNoLength(unsigned marker) {
  return marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8);
}

std::optional<CPictureHeader> FindJpeg(CBytes bytes) {
  std::size_t at = 2;
  while (at + 9 <= bytes.size()) {
    if (bytes[at] != 0xFF) {
      ++at;
      continue;
    }
    const unsigned marker = bytes[at + 1];
    if (IsStartOfFrame(marker))
      return CPictureHeader{wxBITMAP_TYPE_JPEG, BigEndian(bytes, at + 7, 2), BigEndian(bytes, at + 5, 2)};
    if (marker == 0xFF)
      ++at;
    else
      at += 2 + (HasNoLength(marker) ? 0 : BigEndian(bytes, at + 2, 2));
  }
  return {};
}

/// Each of an icon's pictures is a PNG or a BMP without its file header, with a mask below it.
std::optional<CPictureHeader> FindIcon(CBytes bytes, wxBitmapType type) {
  constexpr std::size_t kDirectory = 6;
  constexpr std::size_t kEntry = 16;
  if (bytes.size() < kDirectory) return {};
  CPictureHeader largest{type, 0, 0};
  const std::size_t count = LittleEndian(bytes, 4, 2);
  for (std::size_t i = 0; i < count && kDirectory + (i + 1) * kEntry <= bytes.size(); ++i) {
    const CBytes picture = From(bytes, LittleEndian(bytes, kDirectory + i * kEntry + 12, 4));
    const auto header = StartsWith(picture, "\x89PNG") ? FindPng(picture) : FindDib(picture);
    if (!header) continue;
    largest.width = std::max(largest.width, header->width);
    largest.height = std::max(largest.height, header->height);
  }
  if (largest.width == 0) return {};
  return largest;
}

/// The width and height tags of the first directory.
std::optional<CPictureHeader> FindTiff(CBytes bytes) {
  constexpr std::uint32_t kWidth = 256;
  constexpr std::uint32_t kHeight = 257;
  constexpr std::uint32_t kShort = 3;
  constexpr std::size_t kEntry = 12;
  if (bytes.size() < 8) return {};
  const auto number = bytes[0] == 'I' ? LittleEndian : BigEndian;
  const std::size_t directory = number(bytes, 4, 4);
  if (directory + 2 > bytes.size()) return {};
  CPictureHeader header{wxBITMAP_TYPE_TIFF, 0, 0};
  const std::size_t count = number(bytes, directory, 2);
  for (std::size_t i = 0; i < count && directory + 2 + (i + 1) * kEntry <= bytes.size(); ++i) {
    const std::size_t entry = directory + 2 + i * kEntry;
    const std::uint32_t tag = number(bytes, entry, 2);
    const std::int64_t value = number(bytes, entry + 8, number(bytes, entry + 2, 2) == kShort ? 2 : 4);
    if (tag == kWidth) header.width = std::max(header.width, value);
    if (tag == kHeight) header.height = std::max(header.height, value);
  }
  if (header.width == 0 || header.height == 0) return {};
  return header;
}

}  // namespace

std::optional<CPictureHeader> FindPictureHeader(CBytes bytes) {
  using namespace std::string_view_literals;
  if (StartsWith(bytes, "\x89PNG")) return FindPng(bytes);
  if (StartsWith(bytes, "\xFF\xD8")) return FindJpeg(bytes);
  if (StartsWith(bytes, "BM")) return FindBmp(bytes);
  if (StartsWith(bytes, "\0\0\1\0"sv)) return FindIcon(bytes, wxBITMAP_TYPE_ICO);
  if (StartsWith(bytes, "\0\0\2\0"sv)) return FindIcon(bytes, wxBITMAP_TYPE_CUR);
  if (StartsWith(bytes, "II*\0"sv) || StartsWith(bytes, "MM\0*"sv)) return FindTiff(bytes);
  return {};
}

}  // namespace graphics
