#include "filter/InfoStore.h"

#include "filter/PageLoad.h"
#include "filter/StartUp.h"

namespace authfilter {

CInfoStore::~CInfoStore() {
  const graphics::CToolkitLock lock;
  pluginData.reset();
  pixelAccess.reset();
  pageSurface.reset();
  pageBitmap.reset();
  resourceStore = nullptr;
  attachmentZip.reset();
  layers.clear();
}

void CInfoStore::Open() {
  const graphics::CToolkitLock lock;
  StartUp();
  if (opened) return;
  opened = true;
  if (width <= 0 || height <= 0) return;
  pageBitmap = std::make_unique<wxBitmap>(graphics::MakeAlphaBitmap(width, height));
  pageSurface.emplace(*pageBitmap);
  blackRow_.assign(static_cast<std::size_t>(width), 0xFF000000u);
  LoadPage(*this);
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
  CBackground background{inputPixels, inputStride};
  if (noAlpha) background = {reinterpret_cast<const std::uint8_t*>(blackRow_.data()), 0};
  CFrame frame(*pageBitmap, *pageSurface, background, pageTransform);
  for (const auto& layer : layers) layer->Paint(frame);
}

}  // namespace authfilter
