#pragma once

#include "graphics/geometry/DoubleRect.h"
#include "graphics/geometry/Truncate.h"

#include <wx/gdicmn.h>

#include <algorithm>
#include <cstdint>

namespace graphics {

/// Pixel coordinates are drawn with as long as they are within this distance of the origin; the graphics library
/// counts in 24 bits before the point.
constexpr int kFarthestPixel = 1'000'000;

/// What lies beyond is pulled in to the farthest pixel.
constexpr int ToNearPixel(std::int64_t coordinate) {
  return static_cast<int>(std::clamp<std::int64_t>(coordinate, -kFarthestPixel, kFarthestPixel));
}

/// A dash pattern along so many pixels has more dashes than anyone can wait for.
constexpr int kLongestDashed = 100'000;

/// Truncated; NaN becomes 0.
inline int TruncateToPixel(double coordinate) {
  return ToNearPixel(TruncateToInt(coordinate));
}

inline wxPoint TruncateToPixel(CDoublePoint point) {
  return {TruncateToPixel(point.x), TruncateToPixel(point.y)};
}

/// Rounded down: -0.5 gives -1.
inline int FloorToPixel(double coordinate) {
  return ToNearPixel(FloorToInt(coordinate));
}

inline wxPoint FloorToPixel(CDoublePoint point) {
  return {FloorToPixel(point.x), FloorToPixel(point.y)};
}

/// The rectangle with all four values truncated and its edges pulled in.
inline wxRect ToPixelRect(const CDoubleRect& rect) {
  const int left = TruncateToPixel(rect.left);
  const int top = TruncateToPixel(rect.top);
  const int right = ToNearPixel(std::int64_t{TruncateToInt(rect.left)} + TruncateToInt(rect.width));
  const int bottom = ToNearPixel(std::int64_t{TruncateToInt(rect.top)} + TruncateToInt(rect.height));
  return {left, top, right - left, bottom - top};
}

}  // namespace graphics
