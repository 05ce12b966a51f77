#include "graphics/elements/GraphicArrow.h"

#include "graphics/elements/CloneOf.h"
#include "graphics/paint/PaintContext.h"
#include "graphics/paint/PixelRange.h"

#include <array>

namespace graphics {

namespace {

constexpr double kHeadLength = 8.0;
constexpr double kHeadHalfWidth = 5.0;

wxPoint RoundToPixel(CDoublePoint point) {
  return FloorToPixel(point + 0.5);
}

void DrawArrow(wxDC& dc, wxPoint from, wxPoint to, double headLength, double headHalfWidth) {
  dc.DrawLine(from, to);
  const CDoublePoint tip(to.x, to.y);
  const CDoublePoint direction = (tip - CDoublePoint(from.x, from.y)).Unit();
  if (direction == CDoublePoint()) return;
  const CDoublePoint base = tip - direction * headLength;
  const CDoublePoint across = CDoublePoint(-direction.y, direction.x) * headHalfWidth;
  const std::array head{to, RoundToPixel(base + across), RoundToPixel(base - across)};
  dc.DrawPolygon(static_cast<int>(head.size()), head.data());
}

}  // namespace

void CGraphicArrow::Paint(CPaintContext& context) {
  context.dc->SetPen(GetPen());
  context.dc->SetBrush(GetPen().IsOk() ? wxBrush(GetPen().GetColour()) : *wxBLACK_BRUSH);
  DrawArrow(*context.dc, FloorToPixel(context.matrix.MapPoint(GetStart())),
            FloorToPixel(context.matrix.MapPoint(GetEnd())), kHeadLength, kHeadHalfWidth);
}

orlo::P<CGraphicElement> CGraphicArrow::Clone() const {
  return CloneOf(*this);
}

}  // namespace graphics
