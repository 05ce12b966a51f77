#include "graphics/paint/EffectGraphicsContext.h"

#include "graphics/paint/MaskPictures.h"
#include "graphics/paint/PixelRange.h"
#include "graphics/paint/native/DrawingTarget.h"
#include "graphics/paint/native/TextDrawing.h"

#include <wx/brush.h>
#include <wx/pen.h>

#include <algorithm>
#include <cmath>

namespace graphics {

namespace {

/// Page units are millimetres or pixels; no element that can be seen is scaled more.
constexpr double kSmallestScale = 1.0e-4;
constexpr double kLargestScale = 1.0e4;

double ToNear(double coordinate) {
  constexpr double kFarthest = kFarthestPixel;
  return std::isnan(coordinate) ? 0 : std::clamp(coordinate, -kFarthest, kFarthest);
}

}  // namespace

void TEffectGraphicsContext::DrawBitmap(const wxBitmap& bitmap, double x, double y, double w, double h) {
  if (!bitmap.IsOk()) return;
  if (!alphaMask) {
    DrawBitmapInto(*context, bitmap, x, y, w, h, true);
  } else if (bitmap.HasAlpha()) {
    DrawBitmapInto(*context, WhiteWithAlphaOf(bitmap), x, y, w, h, true);
  } else if (bitmap.GetMask()) {
    DrawBitmapInto(*context, BlackAndWhiteOf(bitmap), x, y, w, h, true);
  } else {
    const wxColour white(255, 255, 255, 255);
    context->SetBrush(wxBrush(white, wxBRUSHSTYLE_SOLID));
    wxPen pen(white, 1, wxPENSTYLE_SOLID);
    pen.SetJoin(wxJOIN_MITER);
    context->SetPen(pen);
    context->DrawRectangle(x - 1.0, y - 1.0, w, h);
  }
}

void TEffectGraphicsContext::DrawBitmapPart(const wxBitmap& bitmap, const wxRect& part, double x, double y, double w,
                                            double h) {
  if (!bitmap.IsOk() || part.IsEmpty() || !wxRect(bitmap.GetSize()).Contains(part)) return;
  if (alphaMask)
    DrawBitmap(bitmap.GetSubBitmap(part), x, y, w, h);
  else
    DrawBitmapPartInto(*context, bitmap, part, x, y, w, h, true);
}

wxGraphicsMatrix TEffectGraphicsContext::CreateMatrix(double a, double b, double c, double d, double tx, double ty) {
  return context->CreateMatrix(a, b, c, d, tx, ty);
}

wxGraphicsMatrix TEffectGraphicsContext::GetTransform() const {
  return context->GetTransform();
}

void TEffectGraphicsContext::PushState() {
  context->PushState();
}

void TEffectGraphicsContext::PopState() {
  context->PopState();
}

void TEffectGraphicsContext::SetTransform(const wxGraphicsMatrix& matrix) {
  double a = 0, b = 0, c = 0, d = 0, tx = 0, ty = 0;
  matrix.Get(&a, &b, &c, &d, &tx, &ty);
  const double determinant = a * d - b * c;
  const auto isScale = [](double x, double y) {
    const double scale = std::hypot(x, y);
    return scale >= kSmallestScale && scale <= kLargestScale;
  };
  const bool usable = isScale(a, b) && isScale(c, d) && std::abs(determinant) >= kSmallestScale * kSmallestScale &&
                      std::abs(tx) <= kFarthestPixel && std::abs(ty) <= kFarthestPixel;
  if (usable)
    context->SetTransform(matrix);
  else
    context->Clip(0, 0, 0, 0);
}

void* TEffectGraphicsContext::GetNativeContext() const {
  return context->GetNativeContext();
}

void TEffectGraphicsContext::Clip(double x, double y, double w, double h) {
  if (!(w > 0 && h > 0)) return context->Clip(0, 0, 0, 0);
  const double left = ToNear(x), top = ToNear(y);
  context->Clip(left, top, ToNear(x + w) - left, ToNear(y + h) - top);
}

void TEffectGraphicsContext::ResetClip() {
  context->ResetClip();
}

wxSize TEffectGraphicsContext::MeasureLine(const wxString& text, const wxFont& font) {
  if (text.empty() || !font.IsOk()) return {0, 0};
  const CTextExtent extent = CTextLayout::Of(font, text)->GetExtent();
  return {extent.width, extent.GetHeight()};
}

void TEffectGraphicsContext::DrawLine(const wxString& text, const wxFont& font, const wxColour& colour, double x,
                                      double y) {
  if (text.empty() || !CanDrawLetters(*context, font)) return;
  context->PushState();
  context->Translate(ToNear(x), ToNear(y));
  DrawTextLayout(*context, CTextLayout::Of(font, text.Left(kLongestDrawnText)), colour);
  context->PopState();
}

}  // namespace graphics
