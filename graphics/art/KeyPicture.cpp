#include "graphics/art/KeyPicture.h"

#include "graphics/paint/EffectDC.h"
#include "graphics/paint/native/BitmapPixels.h"

#include <wx/dcgraph.h>
#include <wx/font.h>
#include <wx/image.h>

#include <algorithm>

namespace graphics {

namespace {

constexpr int kScratchEdge = 10;
constexpr int kBorder = 4;
constexpr double kCornerRadius = 3.0;

wxColour MaskColour() {
  return {255, 0, 128, 255};
}

wxSize MeasureCaption(const wxString& caption) {
  wxBitmap scratch = MakeAlphaBitmap(kScratchEdge, kScratchEdge);
  CBitmapEffectDC dc(scratch);
  dc.SetFont(*wxNORMAL_FONT);
  return dc.GetTextExtent(caption);
}

void DrawCap(wxDC& dc, wxSize size) {
  // The mask has no half-transparent pixels, so the corners have none.
  dc.GetGraphicsContext()->SetAntialiasMode(wxANTIALIAS_NONE);
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(wxBrush(MaskColour()));
  dc.DrawRectangle({0, 0}, size);
  dc.SetPen(*wxBLACK_PEN);
  dc.SetBrush(wxBrush(wxColour(255, 255, 255, 255)));
  dc.DrawRoundedRectangle({0, 0}, size, kCornerRadius);
  dc.GetGraphicsContext()->SetAntialiasMode(wxANTIALIAS_DEFAULT);
}

void DrawCaption(wxDC& dc, const wxString& caption, wxSize text, wxSize size) {
  const wxPoint place(size.x / 2 - (text.x + 2) / 2, size.y / 2 - (text.y + 2) / 2);
  dc.SetFont(*wxNORMAL_FONT);
  dc.SetTextForeground({200, 200, 200, 255});
  for (int dx = 0; dx <= 2; ++dx)
    for (int dy = 0; dy <= 2; ++dy) dc.DrawText(caption, place + wxPoint(dx, dy));
  dc.SetTextForeground(*wxBLACK);
  dc.DrawText(caption, place + wxPoint(1, 1));
}

}  // namespace

wxBitmap MakeKeyPicture(const wxString& caption) {
  const wxSize text = MeasureCaption(caption);
  const wxSize size(text.x + kBorder, text.y + kBorder);
  wxBitmap drawn = MakeAlphaBitmap(size.x, size.y);
  {
    CBitmapEffectDC dc(drawn);
    DrawCap(dc, size);
    DrawCaption(dc, caption, text, size);
    dc.Flush();
  }
  wxImage image = drawn.ConvertToImage();
  image.ClearAlpha();
  wxBitmap result(image);
  result.SetMask(new wxMask(result, MaskColour()));
  return result;
}

}  // namespace graphics
