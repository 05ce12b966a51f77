#include "graphics/elements/GraphicPaper.h"

#include "graphics/elements/CloneOf.h"
#include "graphics/elements/ElementBox.h"
#include "graphics/paint/PixelRange.h"

namespace graphics {

void CGraphicPaper::Paint(CPaintContext& context) {
  constexpr int kShadowIndent = 2;
  wxDC& dc = *context.dc;
  const wxRect sheet = ToPixelRect(BoxOf(*this, context));
  dc.SetPen(*wxBLACK_PEN);
  dc.SetBrush(wxBrush(wxColour(240, 240, 240), wxBRUSHSTYLE_SOLID));
  dc.DrawRectangle(sheet);
  // The first row and the first column beside the sheet; they meet in its corner.
  const int right = sheet.x + sheet.width;
  const int bottom = sheet.y + sheet.height;
  dc.SetPen(wxPen(wxColour(100, 100, 100), 1, wxPENSTYLE_SOLID));
  dc.DrawLine(sheet.x + kShadowIndent, bottom, right + 1, bottom);
  dc.DrawLine(right, sheet.y + kShadowIndent, right, bottom);
}

orlo::P<CGraphicElement> CGraphicPaper::Clone() const {
  return CloneOf(*this);
}

}  // namespace graphics
