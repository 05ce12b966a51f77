#pragma once

namespace graphics {

/// Where text on a circle goes on: radius in device pixels, angle in radians, the radians covered in the current turn,
/// and whether there is no more room.
struct CCircleTextState {
  double radius = 0;
  double angle = 0;
  double offset = 0;
  bool full = false;

  bool operator==(const CCircleTextState&) const = default;
};

}  // namespace graphics
