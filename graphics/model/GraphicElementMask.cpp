#include "graphics/geometry/RectPoints.h"
#include "graphics/geometry/Truncate.h"
#include "graphics/model/GraphicElement.h"
#include "graphics/paint/EffectDC.h"
#include "graphics/paint/PaintContext.h"
#include "graphics/paint/Toolkit.h"
#include "graphics/paint/native/BitmapPixels.h"

#include <cstddef>

namespace graphics {

namespace {

constexpr int kLargestMaskEdge = 16384;
constexpr double kLargestMaskArea = 64.0 * 1024 * 1024;

bool HasMaskSize(int width, int height) {
  return width > 0 && height > 0 && width <= kLargestMaskEdge && height <= kLargestMaskEdge &&
         static_cast<double>(width) * height <= kLargestMaskArea;
}

}  // namespace

bool CGraphicElement::IsTransparentAt(double x, double y, CPaintContext& context) {
  constexpr int kOpaqueFrom = 10;
  const CMatrix toDevice = GetElementMatrix() * context.matrix;
  const CDoubleRect rect = toDevice.MapPoints(CRectPoints::FromCenter({}, GetSize())).BoundingRect().Inflated();
  const CDoublePoint offset = context.matrix.MapPoint({x, y}) - rect.GetPoint(0);
  if (!CDoubleRect{0, 0, rect.width, rect.height}.Contains(offset)) return true;
  if (hitMask_.empty() || !hitMaskRect_.IsNear(rect, 0.001)) {
    if (!DrawHitMask(rect, context)) return true;
  }
  const auto width = static_cast<std::size_t>(TruncateToInt(hitMaskRect_.width));
  const std::size_t pixel =
      static_cast<std::size_t>(TruncateToInt(offset.y)) * width + static_cast<std::size_t>(TruncateToInt(offset.x));
  return pixel >= hitMask_.size() || hitMask_[pixel] < kOpaqueFrom;
}

bool CGraphicElement::DrawHitMask(const CDoubleRect& rect, CPaintContext& context) {
  const int width = TruncateToInt(rect.width);
  const int height = TruncateToInt(rect.height);
  if (!HasMaskSize(width, height)) return false;
  const CToolkitLock lock;
  wxBitmap bitmap = MakeAlphaBitmap(width, height);
  {
    CBitmapEffectDC dc(bitmap);
    CPaintContext alone(context, &dc, context.cacheKey);
    alone.matrix = context.matrix * CMatrix::Translation(-rect.left, -rect.top);
    Paint(alone);
    dc.Flush();
  }
  const CBitmapSurface surface(bitmap);
  surface.Flush();
  constexpr std::size_t kBytesPerPixel = 4;
  constexpr std::size_t kAlphaByte = 3;
  hitMask_.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  auto alpha = hitMask_.begin();
  for (int row = 0; row < height; ++row) {
    const std::uint8_t* pixels = surface.Pixels().Row(row);
    for (int column = 0; column < width; ++column)
      *alpha++ = pixels[static_cast<std::size_t>(column) * kBytesPerPixel + kAlphaByte];
  }
  hitMaskRect_ = rect;
  return true;
}

}  // namespace graphics
