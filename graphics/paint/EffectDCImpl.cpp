#include "graphics/paint/EffectDCImpl.h"

#include "graphics/geometry/Angles.h"
#include "graphics/geometry/GreyColour.h"
#include "graphics/paint/MaskPictures.h"
#include "graphics/paint/PixelRange.h"
#include "graphics/paint/native/DrawingTarget.h"
#include "graphics/paint/native/TextDrawing.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

namespace graphics {

namespace {

const wxColour& White() {
  return *wxWHITE;
}

/// Text has another weight for red, and only the low byte of the sum counts.
wxColour GreyOfText(const wxColour& colour) {
  return GreyColour({colour.Red(), colour.Green(), colour.Blue()}, 255.0, 0.587, 0.114);
}

bool IsHairline(const wxPen& pen) {
  return pen.IsOk() && !pen.IsTransparent() && pen.GetWidth() <= 1;
}

struct CEdges {
  CEdges(wxCoord x, wxCoord y, wxCoord w, wxCoord h)
      : left(ToNearPixel(x)),
        top(ToNearPixel(y)),
        width(ToNearPixel(std::int64_t{x} + w) - left),
        height(ToNearPixel(std::int64_t{y} + h) - top) {}
  int Extent() const { return std::max(std::abs(width), std::abs(height)); }

  int left, top, width, height;
};

/// Draws dashed outlines of things far larger than any picture with a solid pen.
class CSolidIfLong {
public:
  CSolidIfLong(CEffectDCImpl& dc, int extent) : dc_(dc), pen_(dc.GetPen()) {
    if (extent <= kLongestDashed || !pen_.IsOk() || pen_.IsTransparent()) return;
    replaced_ = pen_.GetStyle() != wxPENSTYLE_SOLID;
    if (replaced_) dc_.SetBasePen(wxPen(pen_.GetColour(), pen_.GetWidth(), wxPENSTYLE_SOLID));
  }
  CSolidIfLong(const CSolidIfLong&) = delete;
  CSolidIfLong& operator=(const CSolidIfLong&) = delete;
  ~CSolidIfLong() {
    if (replaced_) dc_.SetBasePen(pen_);
  }

private:
  CEffectDCImpl& dc_;
  const wxPen pen_;
  bool replaced_ = false;
};

}  // namespace

CEffectDCImpl::CEffectDCImpl(wxDC* owner, wxGraphicsContext* context, wxSize size)
    : wxGCDCImpl(owner, context), size_(size) {
  // Lines of an odd width run through the middle of pixels.
  if (context) context->EnableOffset();
}

void CEffectDCImpl::SetBasePen(const wxPen& pen) {
  wxGCDCImpl::SetPen(pen);
  if (!m_graphicContext || !IsHairline(pen)) return;
  // Round ends and corners would only cover a part of the pixels that they lie in.
  wxPen sharp(pen);
  sharp.SetCap(wxCAP_BUTT);
  sharp.SetJoin(wxJOIN_MITER);
  m_graphicContext->SetPen(sharp);
}

void CEffectDCImpl::SetAlphaMask(bool on) {
  effects.alphaMask = on;
  if (!on) return;
  wxDC* const dc = GetOwner();
  dc->SetTextForeground(White());
  dc->SetBrush(wxBrush(White(), wxBRUSHSTYLE_SOLID));
  dc->SetPen(wxPen(White(), 1, wxPENSTYLE_SOLID));
}

void CEffectDCImpl::SetFont(const wxFont& font) {
  if (effects.fontCaching && font.IsOk()) {
    const wxString description = font.GetNativeFontInfoDesc();
    if (description == effects.lastFont) return;
    effects.lastFont = description;
  }
  wxGCDCImpl::SetFont(font);
}

void CEffectDCImpl::SetPen(const wxPen& pen) {
  if (effects.fixedPen) return;
  if (effects.alphaMask && pen.IsOk())
    SetBasePen(wxPen(White(), pen.GetWidth(), pen.GetStyle()));
  else if (effects.greyscale && pen.IsOk())
    SetBasePen(wxPen(GreyOfShape(pen.GetColour()), pen.GetWidth(), pen.GetStyle()));
  else
    SetBasePen(pen);
}

void CEffectDCImpl::SetBrush(const wxBrush& brush) {
  if (effects.fixedBrush) return;
  if (effects.alphaMask && brush.IsOk())
    SetBaseBrush(wxBrush(White(), brush.GetStyle()));
  else if (effects.greyscale && brush.IsOk())
    SetBaseBrush(wxBrush(GreyOfShape(brush.GetColour()), brush.GetStyle()));
  else
    SetBaseBrush(brush);
}

void CEffectDCImpl::SetTextForeground(const wxColour& colour) {
  if (effects.alphaMask)
    wxGCDCImpl::SetTextForeground({255, 255, 255, 255});
  else if (!colour.IsOk())
    wxGCDCImpl::SetTextForeground(colour);
  else if (effects.greyscale)
    wxGCDCImpl::SetTextForeground(GreyOfText(colour));
  else
    wxGCDCImpl::SetTextForeground({colour.Red(), colour.Green(), colour.Blue(), 255});
}

void CEffectDCImpl::DoDrawBitmap(const wxBitmap& bitmap, wxCoord x, wxCoord y, bool useMask) {
  if (!m_graphicContext || !bitmap.IsOk()) return;
  if (effects.alphaMask)
    DrawBitmapAsMask(bitmap, x, y, useMask);
  else
    DrawBaseBitmap(bitmap, x, y, useMask);
}

void CEffectDCImpl::DrawBaseBitmap(const wxBitmap& bitmap, wxCoord x, wxCoord y, bool useMask) {
  DrawBitmapInto(*m_graphicContext, bitmap, ToNearPixel(x), ToNearPixel(y), bitmap.GetWidth(), bitmap.GetHeight(),
                 useMask);
}

void CEffectDCImpl::DrawBitmapAsMask(const wxBitmap& bitmap, wxCoord x, wxCoord y, bool useMask) {
  if (bitmap.HasAlpha()) {
    DrawBaseBitmap(AlphaAsGreyOf(bitmap), x, y, useMask);
  } else if (bitmap.GetMask()) {
    DrawBaseBitmap(BlackAndWhiteOf(bitmap), x, y, useMask);
  } else {
    wxDC* const dc = GetOwner();
    dc->SetBrush(wxBrush(White(), wxBRUSHSTYLE_SOLID));
    dc->SetPen(wxPen(White(), 1, wxPENSTYLE_SOLID));
    dc->DrawRectangle(x, y, bitmap.GetWidth(), bitmap.GetHeight());
  }
}

void CEffectDCImpl::DoDrawText(const wxString& text, wxCoord x, wxCoord y) {
  if (effects.circleText) {
    CCircleTextState& circle = effects.circle;
    if (!circle.full) circle = DrawCircleTextFrom(text, effects.circleCenter.ToPoint(), circle);
  } else if (effects.textHalo) {
    DrawHaloText(text, x, y);
  } else {
    DrawBaseText(text, x, y);
  }
}

void CEffectDCImpl::DrawBaseText(const wxString& text, wxCoord x, wxCoord y) {
  if (!CanDrawLetters()) return;
  if (effects.scalableText)
    DrawScalableText(text, ToNearPixel(x), ToNearPixel(y), 0.0);
  else
    wxGCDCImpl::DoDrawText(text, ToNearPixel(x), ToNearPixel(y));
}

bool CEffectDCImpl::CanDrawLetters() const {
  return m_graphicContext && graphics::CanDrawLetters(*m_graphicContext, m_font);
}

void CEffectDCImpl::DrawHaloText(const wxString& text, wxCoord x, wxCoord y) {
  const wxColour textColour = GetTextForeground();
  const wxColour ground = GetBrush().IsOk() ? GetBrush().GetColour() : wxColour();
  const bool groundIsTransparent = (GetBrush().IsOk() && GetBrush().GetStyle() == wxBRUSHSTYLE_TRANSPARENT) ||
                                   GetBackgroundMode() == wxBRUSHSTYLE_TRANSPARENT;
  const wxColour& halo = effects.haloColour;
  if (halo == textColour && (halo == ground || groundIsTransparent)) {
    const auto faded = [](unsigned char channel) { return static_cast<unsigned char>(255.0 - channel * 0.5); };
    wxGCDCImpl::SetTextForeground({faded(halo.Red()), faded(halo.Green()), faded(halo.Blue()), 255});
    for (int dx = -1; dx <= 1; ++dx)
      for (int dy = -1; dy <= 1; ++dy) DrawBaseText(text, x + dx, y + dy);
    wxGCDCImpl::SetTextForeground(textColour);
  }
  DrawBaseText(text, x, y);
}

void CEffectDCImpl::DoDrawRotatedText(const wxString& text, wxCoord x, wxCoord y, double angle) {
  // The base hands upright text to DoDrawText, where text on a circle would come back to here.
  if (angle == 0.0) return DrawBaseText(text, x, y);
  if (!CanDrawLetters()) return;
  if (effects.scalableText)
    DrawScalableText(text, ToNearPixel(x), ToNearPixel(y), angle);
  else
    wxGCDCImpl::DoDrawRotatedText(text, ToNearPixel(x), ToNearPixel(y), angle);
}

void CEffectDCImpl::DoDrawLine(wxCoord x1, wxCoord y1, wxCoord x2, wxCoord y2) {
  if (!m_graphicContext) return;
  const wxPoint from(ToNearPixel(x1), ToNearPixel(y1));
  const wxPoint to(ToNearPixel(x2), ToNearPixel(y2));
  const bool upright = from.x == to.x || from.y == to.y;
  if (!upright || !IsHairline(m_pen) || m_pen.GetStyle() != wxPENSTYLE_SOLID) {
    const CSolidIfLong solid(*this, std::max(std::abs(to.x - from.x), std::abs(to.y - from.y)));
    wxGCDCImpl::DoDrawLine(from.x, from.y, to.x, to.y);
    return;
  }
  // The pixel of the second point stays out, whatever the direction.
  const wxPoint last = to + wxPoint((from.x > to.x) - (from.x < to.x), (from.y > to.y) - (from.y < to.y));
  if (from == to) return;
  const wxPoint topLeft(std::min(from.x, last.x), std::min(from.y, last.y));
  FillPixels(*m_graphicContext, topLeft.x, topLeft.y, std::abs(from.x - last.x) + 1, std::abs(from.y - last.y) + 1,
             m_pen.GetColour());
  CalcBoundingBox(from.x, from.y, last.x, last.y);
}

void CEffectDCImpl::DoDrawRectangle(wxCoord x, wxCoord y, wxCoord width, wxCoord height) {
  if (!m_graphicContext) return;
  const CEdges edges(x, y, width, height);
  const CSolidIfLong solid(*this, edges.Extent());
  wxGCDCImpl::DoDrawRectangle(edges.left, edges.top, edges.width, edges.height);
}

void CEffectDCImpl::DoDrawRoundedRectangle(wxCoord x, wxCoord y, wxCoord width, wxCoord height, double radius) {
  if (!m_graphicContext) return;
  const CEdges edges(x, y, width, height);
  const CSolidIfLong solid(*this, edges.Extent());
  wxGCDCImpl::DoDrawRoundedRectangle(edges.left, edges.top, edges.width, edges.height, radius);
}

void CEffectDCImpl::DoDrawEllipse(wxCoord x, wxCoord y, wxCoord width, wxCoord height) {
  if (!m_graphicContext) return;
  const CEdges edges(x, y, width, height);
  const CSolidIfLong solid(*this, edges.Extent());
  wxGCDCImpl::DoDrawEllipse(edges.left, edges.top, edges.width, edges.height);
}

void CEffectDCImpl::DoDrawPolygon(int n, const wxPoint points[], wxCoord dx, wxCoord dy, wxPolygonFillMode fill) {
  if (!m_graphicContext) return;
  std::vector<wxPoint> near(points, points + std::max(n, 0));
  int extent = 0;
  for (wxPoint& point : near) {
    point = {ToNearPixel(std::int64_t{point.x} + dx), ToNearPixel(std::int64_t{point.y} + dy)};
    extent = std::max({extent, std::abs(point.x), std::abs(point.y)});
  }
  const CSolidIfLong solid(*this, extent);
  wxGCDCImpl::DoDrawPolygon(n, near.data(), 0, 0, fill);
}

void* CEffectDCImpl::GetCairoContext() const {
  return m_graphicContext ? m_graphicContext->GetNativeContext() : nullptr;
}

void CEffectDCImpl::DoGetSize(int* width, int* height) const {
  if (width) *width = size_.x;
  if (height) *height = size_.y;
}

void CEffectDCImpl::DoGetSizeMM(int* width, int* height) const {
  constexpr double kMillimetresPerInch = 25.4;
  if (width) *width = static_cast<int>(size_.x * kMillimetresPerInch / GetPPI().x);
  if (height) *height = static_cast<int>(size_.y * kMillimetresPerInch / GetPPI().y);
}

}  // namespace graphics
