#include "graphics/paint/PaintMatrixDC.h"

#include "graphics/paint/PixelRange.h"

namespace graphics {

void CPaintMatrixDC::DrawLine(double x1, double y1, double x2, double y2) {
  const CDoublePoint from = matrix.MapPoint({x1, y1});
  const CDoublePoint to = matrix.MapPoint({x2, y2});
  dc->DrawLine(FloorToPixel(from.x), FloorToPixel(from.y), FloorToPixel(to.x), FloorToPixel(to.y));
}

}  // namespace graphics
