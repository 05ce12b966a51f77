#include "graphics/elements/GraphicTextCircle.h"

#include "graphics/elements/CloneOf.h"
#include "graphics/elements/ElementBox.h"
#include "graphics/elements/RichTextPainting.h"
#include "graphics/elements/TextPlace.h"
#include "graphics/geometry/Angles.h"
#include "graphics/paint/EffectDC.h"
#include "graphics/paint/PixelRange.h"

#include <wx/richtext/richtextbuffer.h>

#include <algorithm>

namespace graphics {

void CGraphicTextCircle::Paint(CPaintContext& context) {
  if (Buffer()) PaintText(context, BoxOf(*this, context).GetCenter());
  DrawFrame(context);
  DrawHint(context, "graphics.GraphicTextCircle.ClickToEdit");
}

void CGraphicTextCircle::PaintText(CPaintContext& context, CDoublePoint centre) {
  // Wide enough to keep each paragraph on one line.
  const wxRect kLayout(0, 0, 10000, 10000);
  constexpr double kTop = -90.0;
  CSmoothEffectDC dc(*context.dc);
  dc.SetScalableText(true);
  dc.SetGreyscale(!IsColoured());
  const auto target = dc.CreateEffectContext();
  target->SetTransform(TextPlace(*target, centre, context, *this));

  if (NeedsLayout()) LayOutRichText(*Buffer(), dc, kLayout);
  const double diameter = std::min(GetSize().width, GetSize().height);
  dc.SetCircleText(true);
  dc.SetCircleCenter({0, 0});
  dc.SetCircleAngle(DegToRad(GetRotation() + kTop));
  dc.SetCircleRadius(TruncateToPixel(diameter * context.GetDeviceScale().width) / 2);
  DrawRichText(*Buffer(), dc, kLayout);
  dc.SetUserScale(1.0, 1.0);
  dc.Flush();
}

orlo::P<CGraphicElement> CGraphicTextCircle::Clone() const {
  return CloneOf(*this);
}

}  // namespace graphics
