#include "backend/ffmpeg/Turning.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <numbers>

namespace vantra::ffmpeg {

namespace {

using CPixel = std::uint32_t;

CPixel PixelAt(const std::uint8_t* row, int x) {
  CPixel pixel;
  std::memcpy(&pixel, row + x * 4, sizeof pixel);
  return pixel;
}

void SetPixel(std::uint8_t* row, int x, CPixel pixel) {
  std::memcpy(row + x * 4, &pixel, sizeof pixel);
}

/// Transparent outside.
const std::uint8_t* PixelOrNothing(const CPicture& picture, int x, int y) {
  static constexpr std::array<std::uint8_t, 4> kNothing{};
  if (x < 0 || y < 0 || x >= picture.GetWidth() || y >= picture.GetHeight()) return kNothing.data();
  return picture.GetRow(y) + x * 4;
}

void SampleInto(std::uint8_t* target, const CPicture& source, double x, double y) {
  const double left = std::floor(x);
  const double top = std::floor(y);
  const auto column = static_cast<int>(left);
  const auto line = static_cast<int>(top);
  const double right = x - left;
  const double lower = y - top;
  const std::uint8_t* const corners[4] = {
      PixelOrNothing(source, column, line), PixelOrNothing(source, column + 1, line),
      PixelOrNothing(source, column, line + 1), PixelOrNothing(source, column + 1, line + 1)};
  for (int channel = 0; channel < 4; ++channel) {
    const double upperValue = corners[0][channel] * (1 - right) + corners[1][channel] * right;
    const double lowerValue = corners[2][channel] * (1 - right) + corners[3][channel] * right;
    target[channel] = static_cast<std::uint8_t>(upperValue * (1 - lower) + lowerValue * lower + 0.5);
  }
}

}  // namespace

void MirrorRows(CPicture& picture) {
  for (int y = 0; y < picture.GetHeight(); ++y) {
    std::uint8_t* const row = picture.GetRow(y);
    for (int left = 0, right = picture.GetWidth() - 1; left < right; ++left, --right) {
      const CPixel pixel = PixelAt(row, left);
      SetPixel(row, left, PixelAt(row, right));
      SetPixel(row, right, pixel);
    }
  }
}

void TurnInto(CPicture& target, const CPicture& source, const COrientation& orientation) {
  const int width = target.GetWidth();
  const int height = target.GetHeight();
  target.isOpaque = source.isOpaque;
  for (int y = 0; y < height; ++y) {
    const int line = orientation.IsMirroredY() ? height - 1 - y : y;
    std::uint8_t* const row = target.GetRow(y);
    for (int x = 0; x < width; ++x) {
      const int column = orientation.IsMirroredX() ? width - 1 - x : x;
      SetPixel(
          row, x,
          orientation.IsTransposed() ? PixelAt(source.GetRow(column), line) : PixelAt(source.GetRow(line), column));
    }
  }
}

CSize SizeOfTurned(const CSize& size, double degrees) {
  const double angle = degrees * std::numbers::pi / 180;
  const double wide = std::abs(std::cos(angle));
  const double high = std::abs(std::sin(angle));
  return {size.width * wide + size.height * high, size.width * high + size.height * wide};
}

void RotateInto(CPicture& target, const CPicture& source, double degrees, const CSize& size) {
  const double angle = degrees * std::numbers::pi / 180;
  const double cosine = std::cos(angle);
  const double sine = std::sin(angle);
  const CSize turned = SizeOfTurned(size, degrees);
  const double across = turned.width / target.GetWidth();
  const double down = turned.height / target.GetHeight();
  const double scaleX = source.GetWidth() / size.width;
  const double scaleY = source.GetHeight() / size.height;
  target.isOpaque = false;
  for (int y = 0; y < target.GetHeight(); ++y) {
    std::uint8_t* const row = target.GetRow(y);
    const double v = (y + 0.5) * down - turned.height / 2;
    for (int x = 0; x < target.GetWidth(); ++x) {
      const double u = (x + 0.5) * across - turned.width / 2;
      SampleInto(row + x * 4, source, (u * cosine + v * sine) * scaleX + source.GetWidth() / 2.0 - 0.5,
                 (v * cosine - u * sine) * scaleY + source.GetHeight() / 2.0 - 0.5);
    }
  }
}

void Premultiply(CPicture& picture) {
  std::uint8_t least = 255;
  for (int y = 0; y < picture.GetHeight(); ++y) {
    std::uint8_t* const row = picture.GetRow(y);
    for (int x = 0; x < picture.GetWidth() * 4; x += 4) {
      const unsigned alpha = row[x + 3];
      least = std::min(least, row[x + 3]);
      for (int channel = 0; channel < 3; ++channel) {
        const unsigned product = row[x + channel] * alpha + 128;
        row[x + channel] = static_cast<std::uint8_t>((product + (product >> 8)) >> 8);
      }
    }
  }
  picture.isOpaque = least == 255;
}

void ClampToAlpha(CPicture& picture) {
  for (int y = 0; y < picture.GetHeight(); ++y) {
    std::uint8_t* const row = picture.GetRow(y);
    for (int x = 0; x < picture.GetWidth() * 4; x += 4)
      for (int channel = 0; channel < 3; ++channel) row[x + channel] = std::min(row[x + channel], row[x + 3]);
  }
}

}  // namespace vantra::ffmpeg
