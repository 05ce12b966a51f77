#pragma once

#include "graphics/geometry/DoublePoint.h"
#include "graphics/geometry/DoubleSize.h"

#include <wx/gdicmn.h>

namespace graphics {

struct CMargins;

/// A rectangle in page units or pixels, given by its top left corner and its size.
struct CDoubleRect {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;

  static CDoubleRect FromCenter(CDoublePoint center, CDoubleSize size);
  /// Width and height are the differences of the corners, and may be negative.
  static CDoubleRect FromCorners(CDoublePoint topLeft, CDoublePoint bottomRight);

  /// The right and the bottom edge are outside.
  bool Contains(double x, double y) const;
  bool Contains(CDoublePoint point) const { return Contains(point.x, point.y); }

  CDoublePoint GetCenter() const { return {left + width * 0.5, top + height * 0.5}; }
  CDoubleSize GetSize() const { return {width, height}; }
  /// 0 gives the top left corner, 1 the bottom right one, any other number the centre.
  CDoublePoint GetPoint(int which) const;

  /// What both cover. Width and height are both 0 if they share no area.
  CDoubleRect Intersect(const CDoubleRect& other) const;
  bool Intersects(const CDoubleRect& other) const;

  /// The top left corner rounded down to whole numbers, width and height rounded down and increased by 1.
  CDoubleRect Inflated() const;
  /// Made smaller by the fixed margins; the factors are not looked at.
  CDoubleRect Deflated(const CMargins& margins) const;

  /// All four values differ by less than the tolerance.
  bool IsNear(const CDoubleRect& other, double tolerance) const;
  /// All four values, the place included, are below 0.001 in magnitude.
  bool IsEmpty() const;

  /// All four values truncated.
  wxRect ToRect() const;

  bool operator==(const CDoubleRect&) const = default;
};

}  // namespace graphics
