#include "graphics/geometry/Matrix.h"

#include "graphics/geometry/RectPoints.h"

#include <cmath>

namespace graphics {

CMatrix CMatrix::Identity() {
  return Scale(1, 1);
}

CMatrix CMatrix::Scale(double sx, double sy) {
  CMatrix m;
  m[0] = sx;
  m[5] = sy;
  m[10] = 1;
  m[15] = 1;
  return m;
}

CMatrix CMatrix::Rotation(double radians) {
  const double cosine = std::cos(radians);
  const double sine = std::sin(radians);
  CMatrix m;
  m[0] = cosine;
  m[1] = sine;
  m[4] = -sine;
  m[5] = cosine;
  m[10] = 1;
  m[15] = 1;
  return m;
}

CMatrix CMatrix::Translation(double dx, double dy) {
  CMatrix m = Identity();
  m[12] = dx;
  m[13] = dy;
  return m;
}

CDoublePoint CMatrix::MapPoint(CDoublePoint point) const {
  return MapDirection(point) + CDoublePoint(cells[12], cells[13]);
}

CDoublePoint CMatrix::MapDirection(CDoublePoint direction) const {
  const auto [x, y] = direction;
  return {cells[0] * x + cells[4] * y + cells[8], cells[1] * x + cells[5] * y + cells[9]};
}

CDoubleRect CMatrix::MapRect(const CDoubleRect& rect) const {
  return CDoubleRect::FromCorners(MapPoint(rect.GetPoint(0)), MapPoint(rect.GetPoint(1)));
}

CRectPoints CMatrix::MapPoints(const CRectPoints& points) const {
  CRectPoints result = points;
  for (int i = 0; i < points.GetCount(); ++i) result.SetPoint(i, MapPoint(points.GetPoint(i)));
  return result;
}

CMatrix operator*(const CMatrix& first, const CMatrix& second) {
  CMatrix product;
  for (std::size_t row = 0; row < 4; ++row)
    for (std::size_t column = 0; column < 4; ++column)
      for (std::size_t i = 0; i < 4; ++i) product[row * 4 + column] += first[row * 4 + i] * second[i * 4 + column];
  return product;
}

}  // namespace graphics
