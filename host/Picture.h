#pragma once

#include "host/Size.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace host {

// Rows of pixels, bytes B, G, R, A, colours premultiplied with alpha. Someone else's memory.
struct PictureView {
  const std::uint8_t* pixels = nullptr;
  int stride = 0;
  Size size;

  const std::uint8_t* row(int y) const { return pixels + static_cast<std::ptrdiff_t>(y) * stride; }
};

// The same with its own memory and rows without padding.
class Picture {
public:
  Picture() = default;
  explicit Picture(Size size)
      : size_(size), pixels_(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height) * 4) {}

  Size size() const { return size_; }
  int stride() const { return size_.width * 4; }
  std::uint8_t* row(int y) { return pixels_.data() + static_cast<std::ptrdiff_t>(y) * stride(); }
  std::vector<std::uint8_t>& bytes() { return pixels_; }
  PictureView view() const { return {pixels_.data(), stride(), size_}; }

private:
  Size size_;
  std::vector<std::uint8_t> pixels_;
};

}  // namespace host
