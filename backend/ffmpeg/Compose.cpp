#include "backend/ffmpeg/Compose.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace vantra::ffmpeg {

namespace {

/// Premultiplied, source over destination.
void BlendRow(std::uint8_t* target, const std::uint8_t* source, int pixels) {
  for (int x = 0; x < pixels * 4; x += 4) {
    const unsigned rest = 255U - source[x + 3];
    for (int channel = 0; channel < 4; ++channel) {
      const unsigned product = target[x + channel] * rest + 128;
      const unsigned sum = source[x + channel] + ((product + (product >> 8)) >> 8);
      target[x + channel] = static_cast<std::uint8_t>(std::min(sum, 255U));
    }
  }
}

void Lay(const CLayer& layer, const CPixelBox& seen, CPicture& target) {
  for (int y = seen.y; y < seen.y + seen.height; ++y) {
    std::uint8_t* const to = target.GetRow(y) + seen.x * 4;
    const std::uint8_t* const from = layer.picture->GetRow(y - layer.y) + (seen.x - layer.x) * 4;
    if (layer.picture->isOpaque)
      std::memcpy(to, from, static_cast<std::size_t>(seen.width) * 4);
    else
      BlendRow(to, from, seen.width);
  }
}

}  // namespace

bool CComposer::IsWhole(const CLayer& layer) const {
  const CPixelBox whole{0, 0, width_, height_};
  const CLaid laid = LaidOf(layer);
  return laid.box == whole && laid.seen == whole;
}

CComposer::CLaid CComposer::LaidOf(const CLayer& layer) const {
  const CPixelBox box{layer.x, layer.y, layer.picture->GetWidth(), layer.picture->GetHeight()};
  const CPixelBox seen = Intersection(Intersection(box, layer.visible), {0, 0, width_, height_});
  return {layer.picture->GetNumber(), box, seen, layer.picture->isOpaque};
}

CSharedPicture CComposer::Compose(const std::vector<CLayer>& layers) {
  if (layers.size() == 1 && IsWhole(layers.front())) return layers.front().picture;
  const std::shared_ptr<CPicture> picture = pool_.Get();
  std::vector<CLaid>& before = laid_[picture.get()];
  std::vector<CLaid> laid;
  for (const CLayer& layer : layers) laid.push_back(LaidOf(layer));

  // What lies there already stays, if all that has changed covers what it was.
  const auto sameNumber = [](const CLaid& a, const CLaid& b) { return a.number == b.number && a.IsLike(b); };
  const auto like = [](const CLaid& a, const CLaid& b) { return a.IsLike(b); };
  const auto changed = std::mismatch(laid.begin(), laid.end(), before.begin(), before.end(), sameNumber).first;
  const bool isCovered = !laid.empty() && std::equal(laid.begin(), laid.end(), before.begin(), before.end(), like) &&
                         std::all_of(changed, laid.end(), [](const CLaid& one) { return one.isOpaque; });
  auto first = static_cast<std::size_t>(changed - laid.begin());
  if (!isCovered) {
    const CPixelBox whole{0, 0, width_, height_};
    const auto coversAll = [&](const CLaid& one) { return one.isOpaque && one.seen == whole; };
    const auto lowest = std::find_if(laid.rbegin(), laid.rend(), coversAll);
    first = lowest == laid.rend() ? 0 : static_cast<std::size_t>(laid.rend() - lowest) - 1;
    if (lowest == laid.rend())
      for (int y = 0; y < height_; ++y) std::memset(picture->GetRow(y), 0, static_cast<std::size_t>(width_) * 4);
  }
  for (std::size_t index = first; index < layers.size(); ++index) Lay(layers[index], laid[index].seen, *picture);
  before = std::move(laid);
  picture->isOpaque = false;
  return picture;
}

}  // namespace vantra::ffmpeg
