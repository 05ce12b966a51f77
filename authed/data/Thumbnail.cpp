#include "authed/data/Thumbnail.h"

#include "graphics/geometry/Truncate.h"
#include "graphics/paint/PixelGrid.h"
#include "graphics/paint/PixelRange.h"

#include <wx/brush.h>
#include <wx/pen.h>

#include <algorithm>
#include <cmath>

namespace authed::data {

using namespace graphics;

namespace {

bool IsNearly(double length, int pixels) {
  return std::abs(length - pixels) < 1;
}

void DrawIn(TEffectGraphicsContext& context, const CDoubleRect& place, const wxBitmap& bitmap, const wxRect& part) {
  const CDoublePoint centre = place.GetCenter();
  if (IsNearly(place.width, part.width) && IsNearly(place.height, part.height) && LiesOnPixels(context)) {
    const double left = std::round(centre.x - part.width * 0.5);
    const double top = std::round(centre.y - part.height * 0.5);
    context.DrawBitmapPart(bitmap, part, left, top, part.width, part.height);
  } else {
    context.DrawBitmapPart(bitmap, part, place.left, place.top, place.width, place.height);
  }
}

bool IsFinite(const CDoubleRect& rect) {
  return std::isfinite(rect.left) && std::isfinite(rect.top) && std::isfinite(rect.width) && std::isfinite(rect.height);
}

double ToNear(double coordinate) {
  return std::clamp<double>(coordinate, -kFarthestPixel, kFarthestPixel);
}

/// All of it and nothing else: a pen would draw on the pixels beyond its right and lower edge, too.
void FillBlack(TEffectGraphicsContext& context, const CDoubleRect& rect) {
  const double left = ToNear(rect.left), top = ToNear(rect.top);
  context.context->SetPen(*wxTRANSPARENT_PEN);
  context.context->SetBrush(*wxBLACK_BRUSH);
  context.context->DrawRectangle(left, top, ToNear(rect.left + rect.width) - left,
                                 ToNear(rect.top + rect.height) - top);
}

/// The bitmap's pixels that are too many on either side.
int Surplus(double length, double place, double scale) {
  return std::max(TruncateToInt(0.5 * (length * scale - place) / scale), 0);
}

}  // namespace

void PaintThumbnail(TEffectGraphicsContext& context, const CDoubleRect& rect, const wxBitmap& bitmap, EScaleMode mode) {
  if (!bitmap.IsOk() || !IsFinite(rect) || !(rect.width > 0 && rect.height > 0)) return;
  const int width = bitmap.GetWidth(), height = bitmap.GetHeight();
  const double across = rect.width / width, down = rect.height / height;
  if (mode == EScaleMode::width || mode == EScaleMode::height) {
    const double scale = mode == EScaleMode::width ? std::min(across, down) : down;
    FillBlack(context, rect);
    const CDoubleRect place = CDoubleRect::FromCenter(rect.GetCenter(), {width * scale, height * scale});
    DrawIn(context, place, bitmap, {0, 0, width, height});
  } else if (mode == EScaleMode::fitting) {
    const double scale = std::max(across, down);
    const int x = Surplus(width, rect.width, scale), y = Surplus(height, rect.height, scale);
    DrawIn(context, rect, bitmap, {x, y, width - 2 * x, height - 2 * y});
  }
}

}  // namespace authed::data
