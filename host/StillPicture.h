#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace host {

// What can be told of a picture's bytes.
struct StillPicture {
  // As the module takes them.
  static constexpr std::int64_t maxPixels = std::int64_t{64} * 1024 * 1024;
  static constexpr std::int64_t maxSide = 32767;

  // "png", "jpg", "bmp", or "tiff", "ico", "cur", "gif", of which no more is told; empty for anything else.
  std::string format;
  std::int64_t width = 0;
  std::int64_t height = 0;
  bool inRunLengths = false;

  std::int64_t pixels() const { return width * height; }
  // The module has no decoder for it.
  bool isRefused() const { return format == "gif" || inRunLengths; }
  bool isOfOtherKind() const { return format == "tiff" || format == "ico" || format == "cur"; }
};

// From the header alone; width and height stay 0 if it is cut off.
StillPicture identifyPicture(std::span<const unsigned char> bytes);

// Decodes the picture and tells whether it is whole. False for one that has no format.
bool isWhole(const StillPicture& picture, std::span<const unsigned char> bytes);

}  // namespace host
