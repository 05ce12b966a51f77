#pragma once

#include "graphics/geometry/DoublePoint.h"
#include "graphics/geometry/DoubleRect.h"

#include <array>
#include <cstdint>

namespace graphics {

struct CPolygon;

/// The nine reference points of a rectangle: 0 top left, 1 top right, 2 bottom right, 3 bottom left, 4 centre, and the
/// middles of the edges 5 left, 6 top, 7 right, 8 bottom. Mapped through a matrix they need not form an upright
/// rectangle any more.
struct CRectPoints {
  std::array<double, 9> x{};
  std::array<double, 9> y{};
  std::int32_t count = 9;

  static CRectPoints FromTopLeft(CDoublePoint topLeft, CDoubleSize size);
  static CRectPoints FromCenter(CDoublePoint center, CDoubleSize size);
  static CRectPoints FromRect(const CDoubleRect& rect) { return FromTopLeft({rect.left, rect.top}, rect.GetSize()); }

  /// The index must be below 9.
  CDoublePoint GetPoint(int index) const;
  void SetPoint(int index, CDoublePoint point);
  int GetCount() const { return count; }

  void Translate(double dx, double dy);
  /// The smallest rectangle that holds the four corners.
  CDoubleRect BoundingRect() const;
  /// The closed outline: five points, the first corner again as the last.
  CPolygon ToPolygon() const;
};

}  // namespace graphics
