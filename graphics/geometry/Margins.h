#pragma once

namespace graphics {

/// Fixed margins, and for each side the share of the remaining size that is added to it.
struct CMargins {
  double top = 0;
  double left = 0;
  double right = 0;
  double bottom = 0;
  double topFactor = 0;
  double leftFactor = 0;
  double rightFactor = 0;
  double bottomFactor = 0;

  /// The margins that these come to in a frame of the given size, as fixed ones.
  constexpr CMargins Resolve(double width, double height) const {
    const double freeWidth = width - left - right;
    const double freeHeight = height - top - bottom;
    CMargins result;
    result.top = top + freeHeight * topFactor;
    result.left = left + freeWidth * leftFactor;
    result.right = right + freeWidth * rightFactor;
    result.bottom = bottom + freeHeight * bottomFactor;
    return result;
  }

  bool operator==(const CMargins&) const = default;
};

}  // namespace graphics
