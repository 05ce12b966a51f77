#include "graphics/paint/PaintMatrixDC.h"

#include "graphics/paint/PixelRange.h"

namespace graphics {

void CPaintMatrixDC::DrawLine(double x1, double y1, double x2, double y2) {
  dc->DrawLine(FloorToPixel(matrix.MapPoint({x1, y1})), FloorToPixel(matrix.MapPoint({x2, y2})));
}

}  // namespace graphics
