#include "graphics/elements/FrameOutline.h"

#include "graphics/paint/PixelRange.h"

#include <wx/pen.h>

#include <array>

namespace graphics {

CRectPoints OutlineOf(const CGraphicElement& element, const CPaintContext& context) {
  const CMatrix toDevice = element.GetElementMatrix() * context.matrix;
  return toDevice.MapPoints(CRectPoints::FromCenter({}, element.GetSize()));
}

void DrawFrameOutline(CPaintContext& context, const CGraphicElement& element, const wxColour& colour) {
  constexpr int kCorners = 4;
  const CRectPoints outline = OutlineOf(element, context);
  std::array<wxPoint, kCorners + 1> points;
  for (int index = 0; index <= kCorners; ++index)
    points[static_cast<std::size_t>(index)] = TruncateToPixel(outline.GetPoint(index % kCorners));
  context.dc->SetPen(wxPen(colour, 1, wxPENSTYLE_SOLID));
  context.dc->DrawLines(static_cast<int>(points.size()), points.data());
}

}  // namespace graphics
