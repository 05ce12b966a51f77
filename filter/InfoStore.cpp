#include "filter/InfoStore.h"

#include "filter/PageLoad.h"
#include "filter/StartUp.h"
#include "graphics/paint/Toolkit.h"

#include <algorithm>
#include <utility>

namespace authfilter {

CInfoStore::~CInfoStore() {
  // Movies end on threads of their own, and nobody waits for them.
  Close();
  const graphics::CToolkitLock lock;
  pluginData.reset();
  pixelAccess.reset();
  canvas_.reset();
  pageSurface.reset();
  pageBitmap.reset();
  resourceStore = nullptr;
  attachmentZip.reset();
  movieImages.clear();
  layers.clear();
}

void CInfoStore::Open() {
  if (!PrepareFrame()) return;
  LoadPage(*this);
  // Other instances paint while movies are opened.
  for (const auto& layer : layers) layer->Open(filterBaseDir, animationBaseDir, themeBaseDir);
}

/// False if there is nothing to open.
bool CInfoStore::PrepareFrame() {
  const graphics::CToolkitLock lock;
  StartUp();
  if (std::exchange(opened, true) || width <= 0 || height <= 0) return false;
  pageBitmap = std::make_unique<wxBitmap>(graphics::MakeAlphaBitmap(width, height));
  pageSurface.emplace(*pageBitmap);
  blackRow_.assign(static_cast<std::size_t>(width), 0xFF000000u);
  return true;
}

void CInfoStore::Close() {
  for (const auto& layer : layers) layer->Close();
}

void CInfoStore::NextFrame() {
  for (const auto& layer : layers)
    if (layer->NextFrame()) repaint = true;
}

void CInfoStore::SetInputImage(const void* pixels, std::int32_t stride) {
  inputPixels = static_cast<const std::uint8_t*>(pixels);
  inputStride = stride;
  repaint = true;
}

graphics::CPixels CInfoStore::BeginReadFrame() {
  if (!pageSurface) return {};
  if (repaint) Repaint();
  pixelAccess = pageSurface->Pixels();
  return *pixelAccess;
}

void CInfoStore::EndReadFrame() {
  pixelAccess.reset();
}

void CInfoStore::NewThread() {
  for (const auto& layer : layers) layer->NewThread();
}

void CInfoStore::Repaint() {
  repaint = false;
  const graphics::CPixels& page = pageSurface->Pixels();
  if (!canvas_) canvas_.emplace(CPageGeometry{pageTransform.GetCurrent(), wxRect(0, 0, page.width, page.height)});
  const CPageGeometry& geometry = canvas_->Geometry();
  const CDirtyRegion region = noAlpha && paintedOnBlack ? ChangedRegion(geometry) : CDirtyRegion(geometry.frame);
  if (region.IsEmpty()) return;

  // Until all layers are through, the frame is neither the old one nor the new one.
  paintedOnBlack = false;
  CBackground background{inputPixels, inputStride};
  if (noAlpha) background = {reinterpret_cast<const std::uint8_t*>(blackRow_.data()), 0};
  for (const wxRect& rect : region.GetRects()) {
    const CDirtyRegion part(rect);
    CFrame frame(page, background, part, *canvas_);
    // What is hidden by a layer above need not be painted.
    const auto hides = [&](const auto& layer) { return layer->Hides(rect); };
    const auto hidden = std::find_if(layers.rbegin(), layers.rend(), hides);
    const auto lowest = hidden == layers.rend() ? layers.begin() : hidden.base() - 1;
    for (auto layer = layers.begin(); layer != lowest; ++layer) (*layer)->PassOver(rect, geometry);
    for (auto layer = lowest; layer != layers.end(); ++layer) (*layer)->Paint(frame);
  }
  pageSurface->MarkDirty();
  const auto mayChange = [](const auto& layer) { return layer->MayChange(); };
  if (std::none_of(layers.begin(), layers.end(), mayChange)) canvas_->Release();
  paintedOnBlack = noAlpha;
}

CDirtyRegion CInfoStore::ChangedRegion(const CPageGeometry& geometry) const {
  CDirtyRegion region;
  for (const auto& layer : layers)
    if (layer->HasChanged()) region.Add(layer->GetArea(geometry));
  return region;
}

}  // namespace authfilter
