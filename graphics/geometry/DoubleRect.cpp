#include "graphics/geometry/DoubleRect.h"

#include "graphics/geometry/Angles.h"
#include "graphics/geometry/Margins.h"
#include "graphics/geometry/Truncate.h"

#include <algorithm>
#include <cmath>

namespace graphics {

CDoubleRect CDoubleRect::FromCenter(CDoublePoint center, CDoubleSize size) {
  return {center.x - size.width * 0.5, center.y - size.height * 0.5, size.width, size.height};
}

CDoubleRect CDoubleRect::FromCorners(CDoublePoint topLeft, CDoublePoint bottomRight) {
  return {topLeft.x, topLeft.y, bottomRight.x - topLeft.x, bottomRight.y - topLeft.y};
}

bool CDoubleRect::Contains(double x, double y) const {
  return x >= left && y >= top && x < left + width && y < top + height;
}

CDoublePoint CDoubleRect::GetPoint(int which) const {
  switch (which) {
    case 0:
      return {left, top};
    case 1:
      return {left + width, top + height};
    default:
      return GetCenter();
  }
}

CDoubleRect CDoubleRect::Intersect(const CDoubleRect& other) const {
  CDoubleRect result =
      FromCorners({std::max(left, other.left), std::max(top, other.top)},
                  {std::min(left + width, other.left + other.width), std::min(top + height, other.top + other.height)});
  if (result.width <= 0 || result.height <= 0) result.width = result.height = 0;
  return result;
}

bool CDoubleRect::Intersects(const CDoubleRect& other) const {
  const CDoubleRect common = Intersect(other);
  return common.width != 0 && common.height != 0;
}

CDoubleRect CDoubleRect::Inflated() const {
  return {std::floor(left), std::floor(top), std::floor(width) + 1, std::floor(height) + 1};
}

CDoubleRect CDoubleRect::Deflated(const CMargins& margins) const {
  return {left + margins.left, top + margins.top, width - margins.left - margins.right,
          height - margins.top - margins.bottom};
}

bool CDoubleRect::IsNear(const CDoubleRect& other, double tolerance) const {
  return graphics::IsNear(left, other.left, tolerance) && graphics::IsNear(top, other.top, tolerance) &&
         graphics::IsNear(width, other.width, tolerance) && graphics::IsNear(height, other.height, tolerance);
}

bool CDoubleRect::IsEmpty() const {
  return IsNear({}, 0.001);
}

wxRect CDoubleRect::ToRect() const {
  return {TruncateToInt(left), TruncateToInt(top), TruncateToInt(width), TruncateToInt(height)};
}

}  // namespace graphics
