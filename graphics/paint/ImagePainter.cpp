#include "graphics/paint/ImagePainter.h"

#include "graphics/geometry/Angles.h"
#include "graphics/paint/EffectGraphicsContext.h"
#include "graphics/paint/PixelRange.h"
#include "graphics/paint/native/NativeState.h"

#include <optional>

namespace graphics {

namespace {

bool HasExtent(const wxRect& rect) {
  return rect.width >= 1 && rect.height >= 1;
}

bool IsPartOf(const wxRect& source, const wxBitmap& bitmap) {
  return HasExtent(source) && wxRect(bitmap.GetSize()).Contains(source);
}

bool AreNone(const CMargins& margins) {
  constexpr double kNone = 0.001;
  return IsZero(margins.left, kNone) && IsZero(margins.top, kNone) && IsZero(margins.right, kNone) &&
         IsZero(margins.bottom, kNone);
}

}  // namespace

void CImagePainter::PaintInRect(const CDoubleRect& target, const wxBitmap& bitmap, const CMargins& margins,
                                double factor) {
  const wxRect pixels(TruncateToPixel(margins.left), TruncateToPixel(margins.top), TruncateToPixel(margins.right),
                      TruncateToPixel(margins.bottom));
  PaintNinePart(ToPixelRect(target), bitmap, pixels, factor);
}

void CImagePainter::PaintNinePart(const wxRect& target, const wxBitmap& bitmap, const wxRect& margins, double) {
  if (!bitmap.IsOk()) return;
  const int left = margins.x, top = margins.y, right = margins.width, bottom = margins.height;
  if (left == 0 && top == 0 && right == 0 && bottom == 0) {
    if (target.GetSize() == bitmap.GetSize())
      DrawAt(target.GetTopLeft(), bitmap, nullptr, true);
    else
      DrawStretched(target, bitmap, nullptr, true);
    return;
  }

  const int width = bitmap.GetWidth(), height = bitmap.GetHeight();
  const auto corner = [&](const wxRect& source, int dx, int dy) {
    if (HasExtent(source)) DrawAt(target.GetTopLeft() + wxPoint(dx, dy), bitmap, &source, false);
  };
  corner({0, 0, left, top}, 0, 0);
  corner({width - right, 0, right, top}, target.width - right, 0);
  corner({width - right, height - bottom, right, bottom}, target.width - right, target.height - bottom);
  corner({0, height - bottom, left, bottom}, 0, target.height - bottom);

  using DrawPart = void (CImagePainter::*)(const wxRect&, const wxBitmap&, const wxRect*, bool);
  const auto part = [&](const wxRect& source, wxRect place, DrawPart draw) {
    if (!HasExtent(source) || !HasExtent(place)) return;
    place.Offset(target.GetTopLeft());
    (this->*draw)(place, bitmap, &source, false);
  };
  const wxRect inner(left - overlap, top - overlap, target.width - right - left + 2 * overlap,
                     target.height - bottom - top + 2 * overlap);
  const int innerWidth = width - left - right, innerHeight = height - top - bottom;
  part({0, top, left, innerHeight}, {0, inner.y, left, inner.height}, &CImagePainter::DrawStretched);
  part({width - right, top, right, innerHeight}, {target.width - right, inner.y, right, inner.height},
       &CImagePainter::DrawStretched);
  part({left, 0, innerWidth, top}, {inner.x, 0, inner.width, top}, &CImagePainter::DrawEdge);
  part({left, height - bottom, innerWidth, bottom}, {inner.x, target.height - bottom, inner.width, bottom},
       &CImagePainter::DrawEdge);
  part({left, top, innerWidth, innerHeight}, inner, &CImagePainter::DrawStretched);
}

void CImagePainter::DrawEdge(const wxRect& target, const wxBitmap& bitmap, const wxRect* source, bool useMask) {
  if (fillMode == 0) DrawStretched(target, bitmap, source, useMask);
  if (fillMode == 1) DrawTiled(target, bitmap, source, useMask);
}

void CImagePainter::DrawTiled(const wxRect& target, const wxBitmap& bitmap, const wxRect* source, bool) {
  if (!bitmap.IsOk() || (source && !IsPartOf(*source, bitmap))) return;
  const wxBitmap tile = source ? bitmap.GetSubBitmap(*source) : bitmap;
  wxRect part(tile.GetSize());
  const int end = target.x + target.width;
  for (int x = target.x; x < end; x += tile.GetWidth()) {
    if (end - x <= tile.GetWidth()) part.width = end - x;
    DrawAt({x, target.y}, tile, &part, false);
  }
}

void CImagePainterContext::PaintInRect(const CDoubleRect& target, const wxBitmap& bitmap, const CMargins& margins,
                                       double factor) {
  std::optional<CNativeState> state;
  if (context) {
    state.emplace(context->GetNativeContext());
    state->SetSmoothing(ESmoothing::none);
    state->SetInterpolation(AreNone(margins) ? EInterpolation::highQualityBicubic : EInterpolation::nearest);
  }
  CImagePainter::PaintInRect(target, bitmap, margins, factor);
}

void CImagePainterContext::DrawAt(const wxPoint& point, const wxBitmap& bitmap, const wxRect* source, bool useMask) {
  if (!bitmap.IsOk()) return;
  DrawStretched({point, source ? source->GetSize() : bitmap.GetSize()}, bitmap, source, useMask);
}

void CImagePainterContext::DrawStretched(const wxRect& target, const wxBitmap& bitmap, const wxRect* source, bool) {
  if (!context) return;
  if (source)
    context->DrawBitmapPart(bitmap, *source, target.x, target.y, target.width, target.height);
  else
    context->DrawBitmap(bitmap, target.x, target.y, target.width, target.height);
}

}  // namespace graphics
