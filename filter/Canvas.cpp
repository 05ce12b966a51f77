#include "filter/Canvas.h"

#include "graphics/paint/EffectDC.h"
#include "graphics/paint/PaintContext.h"
#include "graphics/paint/Toolkit.h"

#include <cstring>

namespace authfilter {

namespace {

constexpr std::int64_t kBytesPerPixel = 4;

graphics::CPixels partOf(const graphics::CPixels& pixels, const wxRect& area) {
  return {pixels.Row(area.y) + area.x * kBytesPerPixel, pixels.stride, area.width, area.height};
}

/// Leaves the part transparent, whatever happens.
class CCleared {
public:
  CCleared(const graphics::CBitmapSurface& surface, const graphics::CPixels& part) : surface_(surface), part_(part) {}
  CCleared(const CCleared&) = delete;
  CCleared& operator=(const CCleared&) = delete;
  ~CCleared() {
    for (int y = 0; y < part_.height; ++y)
      std::memset(part_.Row(y), 0, static_cast<std::size_t>(part_.width * kBytesPerPixel));
    surface_.MarkDirty();
  }

private:
  const graphics::CBitmapSurface& surface_;
  const graphics::CPixels part_;
};

}  // namespace

void CCanvas::Draw(graphics::CGraphicDocument& document, const wxRect& area,
                   const std::function<void(const graphics::CPixels&)>& show) {
  const graphics::CToolkitLock lock;
  if (!bitmap_.IsOk()) {
    bitmap_ = graphics::MakeAlphaBitmap(geometry_.frame.width, geometry_.frame.height);
    surface_ = graphics::CBitmapSurface(bitmap_);
  }
  const graphics::CPixels part = partOf(surface_.Pixels(), area);
  const CCleared cleared(surface_, part);
  {
    graphics::CBitmapEffectDC dc(bitmap_);
    graphics::CPaintContext context(&dc, 0);
    context.rect = {0, 0, static_cast<double>(geometry_.frame.width), static_cast<double>(geometry_.frame.height)};
    context.clip = context.rect;
    context.matrix = geometry_.matrix;
    document.Paint(context);
  }
  surface_.Flush();
  show(part);
}

bool CCanvas::MayKeep(const wxSize& size) {
  // Beside its pixels a picture has runs for each row, which of a narrow one is more, and a place among others.
  constexpr std::int64_t kBytesPerRow = 24, kBytesPerPicture = 256;
  const std::int64_t bytes = kBytesPerPicture + size.y * (kBytesPerRow + kBytesPerPixel * size.x);
  if (bytes > bytesLeft_) return false;
  bytesLeft_ -= bytes;
  return true;
}

void CCanvas::Release() {
  if (!surface_.IsOk()) return;
  const graphics::CToolkitLock lock;
  surface_ = {};
  bitmap_ = {};
}

}  // namespace authfilter
