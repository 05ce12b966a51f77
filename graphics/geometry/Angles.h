#pragma once

#include "graphics/geometry/Truncate.h"

#include <cmath>

namespace graphics {

constexpr double DegToRad(double degrees) {
  return degrees * 0.017453292519943295;
}

constexpr double RadToDeg(double radians) {
  return radians * 57.29577951308232;
}

/// Strictly nearer than the tolerance. NaN is near to nothing.
inline bool IsNear(double a, double b, double tolerance) {
  return std::abs(a - b) < tolerance;
}

inline bool IsZero(double a, double tolerance) {
  return std::abs(a) < tolerance;
}

/// True if the whole part of the angle is a multiple of 90.
inline bool IsRightAngle(double degrees) {
  return TruncateToInt(degrees) % 90 == 0;
}

}  // namespace graphics
