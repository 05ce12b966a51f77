#include "graphics/paint/EffectDC.h"

#include "graphics/paint/PixelRange.h"

#include <wx/tokenzr.h>

namespace graphics {

namespace {

/// Empty lines take no room.
void DrawTextLines(wxDC& dc, const wxString& text, int x, int y) {
  wxStringTokenizer lines(text, "\n");
  while (lines.HasMoreTokens()) {
    const wxString line = lines.GetNextToken();
    dc.DrawText(line, x, y);
    y = ToNearPixel(std::int64_t{y} + dc.GetTextExtent(line).y);
  }
}

}  // namespace

CEffectDC::CEffectDC(const CDrawingTarget& target)
    : wxDC(new CEffectDCImpl(this, target.context, target.size)), impl_(static_cast<CEffectDCImpl&>(*GetImpl())) {}

void CEffectDC::TakeEffectsOf(const wxDC& source) {
  const auto* const effects = dynamic_cast<const IEffectDC*>(&source);
  if (!effects) return;
  SetAlphaMask(effects->IsAlphaMask());
  if (effects->HasFixedPen()) SetFixedPen(effects->GetFixedPen());
  if (effects->HasFixedBrush()) SetFixedBrush(effects->GetFixedBrush());
}

void CEffectDC::SetFixedBrush(const wxBrush* brush) {
  impl_.effects.fixedBrush = brush != nullptr;
  if (brush) impl_.SetBaseBrush(*brush);
}

void CEffectDC::SetFixedPen(const wxPen* pen) {
  impl_.effects.fixedPen = pen != nullptr;
  if (pen) impl_.SetBasePen(*pen);
}

void CEffectDC::SetFontCaching(bool on) {
  impl_.effects.fontCaching = on;
  if (on) impl_.effects.lastFont = GetFont().IsOk() ? GetFont().GetNativeFontInfoDesc() : wxString();
}

void CEffectDC::SetCircleText(bool on) {
  impl_.effects.circleText = on;
  impl_.effects.circle.full = false;
}

void CEffectDC::DrawCircleText(const wxString& text, wxPoint centre, double radius, double angle) {
  DrawCircleTextFrom(text, centre, radius, angle, 0.0);
}

void CEffectDC::DrawOutlinedText(const wxString& text, std::int32_t x, std::int32_t y, const wxColour& fill,
                                 const wxColour& outline) {
  x = ToNearPixel(x);
  y = ToNearPixel(y);
  SetTextForeground(outline);
  for (int i = 0; i <= 2; ++i)
    for (int j = 0; j <= 2; ++j) DrawTextLines(*this, text, x + i - 1, y + j - 1);
  SetTextForeground(fill);
  DrawTextLines(*this, text, x, y);
}

CCircleTextState CEffectDC::DrawCircleTextFrom(const wxString& text, wxPoint centre, double radius, double angle,
                                               double offset) {
  return impl_.DrawCircleTextFrom(text, centre, {radius, angle, offset, false});
}

template class TEffectDC<wxMemoryDC, wxBitmap&>;
template class TEffectDC<wxGCDC, wxMemoryDC&>;
template class TEffectDC<wxGCDC, wxBitmap&>;
template class TEffectDC<wxGCDC, wxWindowDC&>;

}  // namespace graphics
