#include "graphics/elements/GraphicRectangle.h"

#include "graphics/elements/CloneOf.h"
#include "graphics/elements/ElementBox.h"
#include "graphics/paint/PixelRange.h"

namespace graphics {

void CGraphicRectangle::Paint(CPaintContext& context) {
  context.dc->SetPen(GetPen());
  context.dc->SetBrush(GetBrush());
  context.dc->DrawRectangle(ToPixelRect(BoxOf(*this, context)));
}

orlo::P<CGraphicElement> CGraphicRectangle::Clone() const {
  return CloneOf(*this);
}

}  // namespace graphics
