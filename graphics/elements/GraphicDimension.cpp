#include "graphics/elements/GraphicDimension.h"

#include "graphics/elements/CloneOf.h"
#include "graphics/paint/PaintContext.h"
#include "graphics/paint/PixelRange.h"

#include <cmath>

namespace graphics {

void CGraphicDimension::Paint(CPaintContext& context) {
  constexpr double kTickLength = 3.0;
  const CDoublePoint start = context.matrix.MapPoint(GetStart());
  const CDoublePoint end = context.matrix.MapPoint(GetEnd());
  const CDoublePoint along = (end - start).Unit();
  const CDoublePoint across(-along.y, along.x);
  const double scale = std::hypot(across.x * context.matrix.GetScaleX(), across.y * context.matrix.GetScaleY());
  const CDoublePoint tick = across * (kTickLength * scale);

  wxDC& dc = *context.dc;
  dc.SetPen(GetPen());
  dc.DrawLine(TruncateToPixel(start), TruncateToPixel(end));
  for (const CDoublePoint mark : {start, end}) {
    dc.DrawLine(TruncateToPixel(mark), TruncateToPixel(mark + tick));
    dc.DrawLine(TruncateToPixel(mark), TruncateToPixel(mark - tick));
  }
}

orlo::P<CGraphicElement> CGraphicDimension::Clone() const {
  return CloneOf(*this);
}

}  // namespace graphics
