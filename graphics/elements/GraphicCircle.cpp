#include "graphics/elements/GraphicCircle.h"

#include "graphics/elements/CloneOf.h"
#include "graphics/elements/ElementBox.h"
#include "graphics/paint/PixelRange.h"

namespace graphics {

void CGraphicCircle::Paint(CPaintContext& context) {
  const CDoubleRect box = BoxOf(*this, context);
  context.dc->SetPen(GetPen());
  context.dc->SetBrush(GetBrush());
  context.dc->DrawCircle(TruncateToPixel(box.GetCenter()), TruncateToPixel(box.width * 0.5));
}

orlo::P<CGraphicElement> CGraphicCircle::Clone() const {
  return CloneOf(*this);
}

}  // namespace graphics
