#include "graphics/elements/TextPicture.h"

#include "graphics/elements/RichTextPainting.h"
#include "graphics/paint/PixelRange.h"
#include "graphics/paint/native/BitmapPixels.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace graphics {

namespace {

using CPictureDC = TEffectDC<wxGCDC, wxBitmap&>;

/// The pixels of the device that the rectangle touches, with one to spare on every side.
wxRect PixelsOf(const wxRect& rect, const wxGraphicsMatrix& place) {
  double left = std::numeric_limits<double>::max(), right = std::numeric_limits<double>::lowest();
  double top = left, bottom = right;
  for (const int corner : {0, 1, 2, 3}) {
    double x = corner % 2 ? rect.width : 0;
    double y = corner / 2 ? rect.height : 0;
    place.TransformPoint(&x, &y);
    left = std::min(left, x);
    right = std::max(right, x);
    top = std::min(top, y);
    bottom = std::max(bottom, y);
  }
  const wxPoint topLeft(FloorToPixel(left) - 1, FloorToPixel(top) - 1);
  return {topLeft, wxPoint(FloorToPixel(right) + 1, FloorToPixel(bottom) + 1)};
}

template <class DC>
void DrawInto(DC& dc, wxRichTextBuffer& text, const wxRect& rect, const wxGraphicsMatrix& place) {
  dc.CreateEffectContext()->SetTransform(place);
  dc.SetClippingRegion(rect);
  DrawRichText(text, dc, rect);
  dc.SetUserScale(1.0, 1.0);
  dc.Flush();
}

}  // namespace

void CTextPicture::Draw(CSmoothEffectDC& dc, wxRichTextBuffer& text, const wxRect& rect,
                        const wxGraphicsMatrix& place) {
  if (dc.IsAlphaMask() || dc.HasFixedPen() || dc.HasFixedBrush()) return DrawInto(dc, text, rect, place);
  CKey key;
  auto& [a, b, c, d, x, y] = key.place;
  place.Get(&a, &b, &c, &d, &x, &y);
  key.surface = dc.GetSize();
  key.greyscale = dc.IsGreyscale();
  if (!bitmap_ || !bitmap_->IsOk() || !(key == key_)) {
    pixels_ = PixelsOf(rect, place).Intersect(wxRect(key.surface));
    bitmap_.reset();
    if (pixels_.IsEmpty()) return;
    Make(dc, text, rect, place);
    key_ = key;
  }
  bitmap_->Touch();
  dc.DrawBitmap(*bitmap_, pixels_.GetPosition(), true);
  dc.Flush();
}

void CTextPicture::Make(const CSmoothEffectDC& dc, wxRichTextBuffer& text, const wxRect& rect,
                        const wxGraphicsMatrix& place) {
  wxBitmap bitmap = MakeAlphaBitmap(pixels_.width, pixels_.height);
  {
    CPictureDC picture(bitmap);
    picture.SetFontCaching(dc.IsFontCaching());
    picture.SetScalableText(dc.IsScalableText());
    picture.SetGreyscale(dc.IsGreyscale());
    wxGraphicsMatrix moved = dc.GetGraphicsContext()->CreateMatrix(1, 0, 0, 1, -pixels_.x, -pixels_.y);
    moved.Concat(place);
    DrawInto(picture, text, rect, moved);
  }
  bitmap_ = std::make_unique<CScaledCopy>(bitmap);
}

}  // namespace graphics
