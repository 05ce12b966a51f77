#include "graphics/elements/Reflection.h"

#include <algorithm>
#include <cstddef>

namespace graphics {

namespace {

constexpr double kFirstAlpha = 100.0;

void LimitAlpha(std::uint8_t* pixel, int limit) {
  const int alpha = pixel[3];
  if (alpha <= limit) return;
  for (int channel = 0; channel < 3; ++channel)
    pixel[channel] = static_cast<std::uint8_t>((pixel[channel] * limit + alpha / 2) / alpha);
  pixel[3] = static_cast<std::uint8_t>(limit);
}

}  // namespace

void FlipRows(const CPixels& pixels) {
  const std::ptrdiff_t bytes = std::ptrdiff_t{4} * pixels.width;
  for (int top = 0, bottom = pixels.height - 1; top < bottom; ++top, --bottom)
    std::swap_ranges(pixels.Row(top), pixels.Row(top) + bytes, pixels.Row(bottom));
}

void FadeRows(const CPixels& pixels, int firstRow, int fullHeight) {
  const double step = kFirstAlpha / fullHeight;
  double alpha = kFirstAlpha;
  for (int row = 0; row < firstRow + pixels.height; ++row) {
    if (row >= firstRow) {
      std::uint8_t* pixel = pixels.Row(row - firstRow);
      for (int x = 0; x < pixels.width; ++x, pixel += 4) LimitAlpha(pixel, static_cast<int>(alpha));
    }
    alpha = std::max(alpha - step, 0.0);
  }
}

}  // namespace graphics
