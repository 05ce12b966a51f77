#include "filter/DocumentLayer.h"

#include "graphics/geometry/Truncate.h"

namespace authfilter {

CDocumentLayer::~CDocumentLayer() {
  const graphics::CToolkitLock lock;
  surface_.reset();
  cachedBitmap_.reset();
}

void CDocumentLayer::Paint(CFrame& frame) {
  if (!cachedBitmap_) Render(frame.Geometry());
  frame.Blend(surface_->Pixels(), coverage_);
}

void CDocumentLayer::Render(const graphics::CPaintContext& geometry) {
  const graphics::CToolkitLock lock;
  wxBitmap bitmap = graphics::MakeAlphaBitmap(graphics::TruncateToInt(geometry.rect.width),
                                              graphics::TruncateToInt(geometry.rect.height));
  {
    graphics::CBitmapEffectDC dc(bitmap);
    graphics::CPaintContext context(&dc, 0);
    context.rect = {0, 0, geometry.rect.width, geometry.rect.height};
    context.clip = context.rect;
    context.matrix = geometry.matrix;
    GetDocument()->Paint(context);
  }
  surface_.emplace(bitmap);
  surface_->Flush();
  coverage_ = CCoverage(surface_->Pixels());
  cachedBitmap_ = bitmap;
}

}  // namespace authfilter
