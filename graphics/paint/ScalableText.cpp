#include "graphics/geometry/Angles.h"
#include "graphics/paint/EffectDCImpl.h"
#include "graphics/paint/native/DrawingTarget.h"
#include "graphics/paint/native/TextDrawing.h"

namespace graphics {

void CEffectDCImpl::DoGetTextExtent(const wxString& text, wxCoord* width, wxCoord* height, wxCoord* descent,
                                    wxCoord* externalLeading, const wxFont* font) const {
  const wxFont& used = font ? *font : m_font;
  if (!effects.scalableText || !used.IsOk())
    return wxGCDCImpl::DoGetTextExtent(text, width, height, descent, externalLeading, font);
  const CTextExtent extent = CTextLayout::Of(used, text)->GetExtent();
  if (width) *width = extent.width;
  if (height) *height = text.empty() ? 0 : extent.GetHeight();
  if (descent) *descent = text.empty() ? 0 : extent.descent;
  if (externalLeading) *externalLeading = 0;
}

bool CEffectDCImpl::DoGetPartialTextExtents(const wxString& text, wxArrayInt& widths) const {
  if (!effects.scalableText || !m_font.IsOk()) return wxGCDCImpl::DoGetPartialTextExtents(text, widths);
  widths = CTextLayout::Of(m_font, text)->GetPartialExtents();
  return true;
}

wxCoord CEffectDCImpl::GetCharHeight() const {
  if (!effects.scalableText || !m_font.IsOk()) return wxGCDCImpl::GetCharHeight();
  return CTextLayout::Of(m_font, "H")->GetExtent().GetHeight();
}

wxCoord CEffectDCImpl::GetCharWidth() const {
  if (!effects.scalableText || !m_font.IsOk()) return wxGCDCImpl::GetCharWidth();
  return CTextLayout::Of(m_font, "g")->GetExtent().width;
}

void CEffectDCImpl::DrawScalableText(const wxString& text, wxCoord x, wxCoord y, double angle) {
  if (text.empty()) return;
  const auto layout = CTextLayout::Of(m_font, text.Left(kLongestDrawnText));
  const CTextExtent extent = layout->GetExtent();
  m_graphicContext->PushState();
  m_graphicContext->Translate(x, y);
  m_graphicContext->Rotate(-DegToRad(angle));
  if (m_backgroundMode != wxBRUSHSTYLE_TRANSPARENT)
    FillPixels(*m_graphicContext, 0, 0, extent.width, extent.GetHeight(), m_textBackgroundColour);
  DrawTextLayout(*m_graphicContext, layout, m_textForegroundColour);
  m_graphicContext->PopState();
  if (angle == 0.0) CalcBoundingBox(x, y, x + extent.width, y + extent.GetHeight());
}

}  // namespace graphics
