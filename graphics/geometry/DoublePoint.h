#pragma once

#include <wx/gdicmn.h>

namespace graphics {

/// A place in page units or pixels, the y axis downwards; also serves as a vector.
struct CDoublePoint {
  double x = 0;
  double y = 0;

  constexpr CDoublePoint() = default;
  constexpr CDoublePoint(double x_, double y_) : x(x_), y(y_) {}
  explicit CDoublePoint(const wxSize& size) : x(size.x), y(size.y) {}

  double Length() const;
  /// The vector of length 1 in this direction; a zero vector if this one is shorter than 0.0001.
  CDoublePoint Unit() const;
  /// Turned by 90 degrees about the origin.
  CDoublePoint Rotated90() const;
  /// Both coordinates truncated.
  wxPoint ToPoint() const;

  bool operator==(const CDoublePoint&) const = default;
};

constexpr CDoublePoint operator+(CDoublePoint a, CDoublePoint b) {
  return {a.x + b.x, a.y + b.y};
}
constexpr CDoublePoint operator-(CDoublePoint a, CDoublePoint b) {
  return {a.x - b.x, a.y - b.y};
}
constexpr CDoublePoint operator-(CDoublePoint a) {
  return {-a.x, -a.y};
}
constexpr CDoublePoint operator*(CDoublePoint a, double factor) {
  return {a.x * factor, a.y * factor};
}
/// Adds the number to both coordinates.
constexpr CDoublePoint operator+(CDoublePoint a, double b) {
  return {a.x + b, a.y + b};
}
constexpr CDoublePoint operator-(CDoublePoint a, double b) {
  return {a.x - b, a.y - b};
}

}  // namespace graphics
