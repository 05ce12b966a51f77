#include "graphics/elements/GraphicLine.h"

#include "graphics/elements/CloneOf.h"
#include "graphics/paint/PaintContext.h"
#include "graphics/paint/PixelRange.h"

namespace graphics {

void CGraphicLine::Paint(CPaintContext& context) {
  context.dc->SetPen(GetPen());
  context.dc->DrawLine(TruncateToPixel(context.matrix.MapPoint(GetStart())),
                       TruncateToPixel(context.matrix.MapPoint(GetEnd())));
}

orlo::P<CGraphicElement> CGraphicLine::Clone() const {
  return CloneOf(*this);
}

}  // namespace graphics
