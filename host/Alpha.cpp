#include "host/Alpha.h"

#include <algorithm>

namespace host {

void premultiply(std::uint8_t* bgra, std::size_t pixels) {
  for (std::uint8_t* pixel = bgra; pixel != bgra + pixels * 4; pixel += 4) {
    const unsigned alpha = pixel[3];
    for (int channel = 0; channel < 3; ++channel) {
      pixel[channel] = static_cast<std::uint8_t>((pixel[channel] * alpha + 127) / 255);
    }
  }
}

void limitToAlpha(std::uint8_t* bgra, std::size_t pixels) {
  for (std::uint8_t* pixel = bgra; pixel != bgra + pixels * 4; pixel += 4) {
    for (int channel = 0; channel < 3; ++channel) pixel[channel] = std::min(pixel[channel], pixel[3]);
  }
}

bool isOpaque(const PictureView& picture) {
  for (int y = 0; y < picture.size.height; ++y) {
    const std::uint8_t* row = picture.row(y);
    for (int x = 0; x < picture.size.width; ++x) {
      if (row[x * 4 + 3] != 255) return false;
    }
  }
  return true;
}

void toStraightRgba(const std::uint8_t* bgra, std::uint8_t* rgba, int pixels) {
  for (int x = 0; x < pixels; ++x, bgra += 4, rgba += 4) {
    const unsigned alpha = bgra[3];
    for (int channel = 0; channel < 3; ++channel) {
      const unsigned straight = alpha == 0 ? 0 : (bgra[2 - channel] * 255u + alpha / 2) / alpha;
      rgba[channel] = static_cast<std::uint8_t>(std::min(straight, 255u));
    }
    rgba[3] = bgra[3];
  }
}

}  // namespace host
