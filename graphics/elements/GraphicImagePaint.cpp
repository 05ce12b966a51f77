#include "graphics/art/SkinManager.h"
#include "graphics/elements/ElementBox.h"
#include "graphics/elements/ElementTransform.h"
#include "graphics/elements/FrameOutline.h"
#include "graphics/elements/GraphicImage.h"
#include "graphics/elements/PictureHint.h"
#include "graphics/paint/EffectDC.h"
#include "graphics/paint/ImagePainter.h"
#include "graphics/paint/PixelRange.h"
#include "graphics/paint/SharedEffectContext.h"
#include "graphics/paint/native/BitmapPixels.h"
#include "graphics/paint/native/ImageConversion.h"
#include "graphics/paint/native/NativeState.h"

#include <algorithm>

namespace graphics {

namespace {

constexpr double kNoMargin = 0.001;

/// Frames far larger than the surface are painted without a copy, which would mostly lie beyond its edges.
constexpr std::int64_t kLargestCopyInSurfaces = 4;

std::int64_t AreaOf(wxSize size) {
  return std::int64_t{size.x} * size.y;
}

bool IsWorthACopy(wxSize size, const wxDC& dc) {
  constexpr std::int64_t kBytesPerPixel = 4;
  return size.x <= kLargestBitmapEdge && size.y <= kLargestBitmapEdge &&
         AreaOf(size) <= kLargestCopyInSurfaces * AreaOf(dc.GetSize()) &&
         AreaOf(size) * kBytesPerPixel <= static_cast<std::int64_t>(kScaledCopyBudget);
}

}  // namespace

bool CGraphicImage::HasMargins() const {
  const CMargins& margins = scaleMargins_;
  return !(margins.left < kNoMargin && margins.top < kNoMargin && margins.right < kNoMargin &&
           margins.bottom < kNoMargin);
}

void CGraphicImage::Paint(CPaintContext& context) {
  if (!context.dc->GetGraphicsContext()) return;
  const CDoubleRect box = OutlineOf(*this, context).BoundingRect();
  if (bitmap_ && bitmap_->IsOk()) PaintPicture(context, box);
  if (context.ShowsFrames()) PaintFrames(context, box);
}

void CGraphicImage::PaintPicture(CPaintContext& context, const CDoubleRect& box) {
  const bool nineParts = HasMargins();
  if (noScale_ && !nineParts && context.outputMode == 1) {
    context.dc->DrawBitmap(*bitmap_, TruncateToPixel(box.GetPoint(0)), true);
    return;
  }

  const CDoubleRect place = context.matrix.MapRect(FrameOf(*this));
  if (nineParts && bitmap_->GetWidth() < place.width && bitmap_->GetHeight() < place.height) {
    DrawTransformed(*bitmap_, box, place, context);
    return;
  }

  const wxSize size(TruncateToInt(place.width), TruncateToInt(place.height));
  if (size.x < 1 || size.y < 1) return;
  if (!IsWorthACopy(size, *context.dc)) {
    PaintWithoutCopy(context, box, place);
    return;
  }
  const wxBitmap* const scaled = FindScaled(context, size);
  if (!scaled) return;
  if (nineParts)
    DrawTransformed(*scaled, box, place, context);
  else if (GetRotation() == 0.0)
    context.dc->DrawBitmap(*scaled, TruncateToPixel(place.GetPoint(0)), true);
  else
    DrawTransformed(*scaled, place, place, context);
}

void CGraphicImage::PaintWithoutCopy(CPaintContext& context, const CDoubleRect& box, const CDoubleRect& place) {
  const wxBitmap* const picture = IsColoured() ? bitmap_.get() : FindScaled(context, bitmap_->GetSize());
  if (!picture) return;
  const CSharedEffectContext target(context);
  CNativeState state(target->GetNativeContext());
  state.SetInterpolation(EInterpolation::nearest);
  if (HasMargins()) {
    wxGraphicsMatrix matrix = TurnedAbout(*target, box.GetCenter(), *this);
    matrix.Translate(place.left, place.top);
    target->SetTransform(matrix);
    CImagePainterContext(&*target).PaintInRect({0, 0, place.width, place.height}, *picture, scaleMargins_, 1.0);
  } else if (GetRotation() == 0.0) {
    const wxRect pixels = place.ToRect();
    target->DrawBitmap(*picture, pixels.x, pixels.y, pixels.width, pixels.height);
  } else {
    target->SetTransform(TurnedAbout(*target, place.GetCenter(), *this));
    target->DrawBitmap(*picture, place.left, place.top, place.width, place.height);
  }
}

void CGraphicImage::PaintFrames(CPaintContext& context, const CDoubleRect& box) const {
  if (!bitmap_) {
    DrawPictureHint(context, *this);
  } else if (context.viewMode == 2 && HasMargins()) {
    context.dc->SetBrush(*wxTRANSPARENT_BRUSH);
    context.dc->SetPen(wxPen(CSkinManager::GetInstance().GetFrameColour(0), 1, wxPENSTYLE_DOT));
    context.dc->DrawRectangle(ToPixelRect(box.Deflated(scaleMargins_)));
  }
}

void CGraphicImage::DrawTransformed(const wxBitmap& picture, const CDoubleRect& frame, const CDoubleRect& place,
                                    CPaintContext& context) const {
  const CSharedEffectContext target(context);
  target->SetTransform(TurnedAbout(*target, frame.GetCenter(), *this));
  target->DrawBitmap(picture, place.left, place.top, place.width, place.height);
}

const wxBitmap* CGraphicImage::FindScaled(const CPaintContext& context, wxSize size) {
  CScaledCopy* copy = scaled_.Get(context.cacheKey, context.highQuality);
  if (!copy || !copy->IsOk() || copy->GetSize() != size) {
    const wxBitmap scaled = MakeScaled(size);
    if (!scaled.IsOk()) return nullptr;
    copy = scaled_.Set(context.cacheKey, context.highQuality, std::make_unique<CScaledCopy>(scaled));
  }
  copy->Touch();
  return copy;
}

wxBitmap CGraphicImage::MakeScaled(wxSize size) const {
  const wxBitmap picture = HasMargins() ? MakeNinePart(size) : *bitmap_;
  if (HasMargins() && IsColoured()) return picture;
  wxImage image = ImageOf(picture);
  if (image.GetSize() != size) image.Rescale(size.x, size.y, wxIMAGE_QUALITY_NORMAL);
  if (!IsColoured()) image = image.ConvertToGreyscale(0.299, 0.587, 0.114);
  return BitmapOf(image);
}

wxBitmap CGraphicImage::MakeNinePart(wxSize size) const {
  wxBitmap bitmap = MakeAlphaBitmap(size.x, size.y);
  TEffectDC<wxGCDC, wxBitmap&> dc(bitmap);
  const auto context = dc.CreateEffectContext();
  CImagePainterContext(context.get())
      .PaintInRect({0, 0, static_cast<double>(size.x), static_cast<double>(size.y)}, *bitmap_, scaleMargins_, 1.0);
  dc.Flush();
  return bitmap;
}

}  // namespace graphics
