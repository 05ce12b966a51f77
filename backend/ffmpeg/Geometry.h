#pragma once

#include <algorithm>
#include <cmath>

namespace vantra::ffmpeg {

/// In display pixels, which are square.
struct CSize {
  double width = 0;
  double height = 0;
};

struct CBox {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
};

struct CPixelBox {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  bool operator==(const CPixelBox&) const = default;
  bool IsEmpty() const { return width <= 0 || height <= 0; }
};

inline int RoundToPixel(double value) {
  constexpr double kFar = 1e8;
  return value == value ? static_cast<int>(std::lround(std::clamp(value, -kFar, kFar))) : 0;
}

/// At least one pixel of what is there at all.
inline CPixelBox ToPixels(const CBox& box) {
  const int left = RoundToPixel(box.x);
  const int top = RoundToPixel(box.y);
  return {left, top, std::max(RoundToPixel(box.x + box.width) - left, 1),
          std::max(RoundToPixel(box.y + box.height) - top, 1)};
}

inline CPixelBox Intersection(const CPixelBox& a, const CPixelBox& b) {
  const int left = std::max(a.x, b.x);
  const int top = std::max(a.y, b.y);
  return {left, top, std::max(std::min(a.x + a.width, b.x + b.width) - left, 0),
          std::max(std::min(a.y + a.height, b.y + b.height) - top, 0)};
}

/// One of the eight ways in which a picture can lie: where the right and the lower side of it come to. Down and right
/// are positive.
struct COrientation {
  int rightX = 1;
  int rightY = 0;
  int downX = 0;
  int downY = 1;

  bool operator==(const COrientation&) const = default;
  bool IsTransposed() const { return rightX == 0; }
  /// Of the picture that comes out.
  bool IsMirroredX() const { return IsTransposed() ? downX < 0 : rightX < 0; }
  bool IsMirroredY() const { return IsTransposed() ? rightY < 0 : downY < 0; }

  COrientation Then(const COrientation& next) const {
    return {rightX * next.rightX + rightY * next.downX, rightX * next.rightY + rightY * next.downY,
            downX * next.rightX + downY * next.downX, downX * next.rightY + downY * next.downY};
  }
  static COrientation Mirror(bool horizontally, bool vertically) {
    return {horizontally ? -1 : 1, 0, 0, vertically ? -1 : 1};
  }
  /// Clockwise.
  static COrientation QuarterTurns(int turns) {
    COrientation result;
    for (int turn = 0; turn < turns; ++turn) result = result.Then({0, 1, -1, 0});
    return result;
  }
};

}  // namespace vantra::ffmpeg
