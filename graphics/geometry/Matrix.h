#pragma once

#include "graphics/geometry/DoublePoint.h"
#include "graphics/geometry/DoubleRect.h"

#include <array>
#include <cstddef>

namespace graphics {

struct CRectPoints;

/// A 4 by 4 matrix, row by row, for row vectors: the matrix on the left of a product acts first. A point is
/// (x, y, 1, 1), so that the third row moves it as the fourth does. A new matrix is all zero.
struct CMatrix {
  std::array<double, 16> cells{};

  static CMatrix Identity();
  static CMatrix Scale(double sx, double sy);
  /// Positive angles turn clockwise on the screen.
  static CMatrix Rotation(double radians);
  static CMatrix Translation(double dx, double dy);
  static CMatrix Translation(CDoublePoint by) { return Translation(by.x, by.y); }

  double operator[](std::size_t index) const { return cells[index]; }
  double& operator[](std::size_t index) { return cells[index]; }

  CDoublePoint MapPoint(CDoublePoint point) const;
  /// As MapPoint, without the translation of the fourth row.
  CDoublePoint MapDirection(CDoublePoint direction) const;
  /// The rectangle from the mapped top left to the mapped bottom right corner; its size may come out negative.
  CDoubleRect MapRect(const CDoubleRect& rect) const;
  CRectPoints MapPoints(const CRectPoints& points) const;

  double GetScaleX() const { return cells[0]; }
  double GetScaleY() const { return cells[5]; }

  bool operator==(const CMatrix&) const = default;
};

CMatrix operator*(const CMatrix& first, const CMatrix& second);

}  // namespace graphics
