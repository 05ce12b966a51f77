#include "graphics/geometry/DoublePoint.h"

#include "graphics/geometry/Matrix.h"
#include "graphics/geometry/Truncate.h"

#include <cmath>

namespace graphics {

double CDoublePoint::Length() const {
  return std::sqrt(x * x + y * y);
}

CDoublePoint CDoublePoint::Unit() const {
  const double length = Length();
  if (length < 0.0001) return {};
  return {x / length, y / length};
}

CDoublePoint CDoublePoint::Rotated90() const {
  return CMatrix::Rotation(1.5707963267948966).MapPoint(*this);
}

wxPoint CDoublePoint::ToPoint() const {
  return {TruncateToInt(x), TruncateToInt(y)};
}

}  // namespace graphics
