#include "graphics/geometry/RectPoints.h"

#include "graphics/geometry/Polygon.h"

#include <algorithm>
#include <cstddef>

namespace graphics {

CRectPoints CRectPoints::FromTopLeft(CDoublePoint topLeft, CDoubleSize size) {
  const auto [left, top] = topLeft;
  const double right = left + size.width;
  const double bottom = top + size.height;
  const double middleX = left + size.width * 0.5;
  const double middleY = top + size.height * 0.5;
  CRectPoints points;
  points.x = {left, right, right, left, middleX, left, middleX, right, middleX};
  points.y = {top, top, bottom, bottom, middleY, middleY, top, middleY, bottom};
  return points;
}

CRectPoints CRectPoints::FromCenter(CDoublePoint center, CDoubleSize size) {
  return FromRect(CDoubleRect::FromCenter(center, size));
}

CDoublePoint CRectPoints::GetPoint(int index) const {
  const auto i = static_cast<std::size_t>(index);
  return {x.at(i), y.at(i)};
}

void CRectPoints::SetPoint(int index, CDoublePoint point) {
  const auto i = static_cast<std::size_t>(index);
  x.at(i) = point.x;
  y.at(i) = point.y;
}

void CRectPoints::Translate(double dx, double dy) {
  for (int i = 0; i < count; ++i) SetPoint(i, GetPoint(i) + CDoublePoint(dx, dy));
}

CDoubleRect CRectPoints::BoundingRect() const {
  const auto [left, right] = std::minmax({x[0], x[1], x[2], x[3]});
  const auto [top, bottom] = std::minmax({y[0], y[1], y[2], y[3]});
  return CDoubleRect::FromCorners({left, top}, {right, bottom});
}

CPolygon CRectPoints::ToPolygon() const {
  CPolygon polygon;
  for (int corner : {0, 1, 2, 3, 0}) polygon.Append(GetPoint(corner));
  return polygon;
}

}  // namespace graphics
