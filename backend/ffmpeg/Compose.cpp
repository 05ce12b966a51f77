#include "backend/ffmpeg/Compose.h"

#include <cstring>

namespace vantra::ffmpeg {

namespace {

CPixelBox SeenOf(const CLayer& layer, const CPicture& target) {
  const CPixelBox box{layer.x, layer.y, layer.picture->GetWidth(), layer.picture->GetHeight()};
  return Intersection(Intersection(box, layer.visible), {0, 0, target.GetWidth(), target.GetHeight()});
}

/// Premultiplied, source over destination.
void BlendRow(std::uint8_t* target, const std::uint8_t* source, int pixels) {
  for (int x = 0; x < pixels * 4; x += 4) {
    const unsigned rest = 255U - source[x + 3];
    for (int channel = 0; channel < 4; ++channel) {
      const unsigned product = target[x + channel] * rest + 128;
      const unsigned sum = source[x + channel] + ((product + (product >> 8)) >> 8);
      target[x + channel] = static_cast<std::uint8_t>(sum > 255 ? 255 : sum);
    }
  }
}

void Lay(const CLayer& layer, CPicture& target) {
  const CPixelBox seen = SeenOf(layer, target);
  for (int y = seen.y; y < seen.y + seen.height; ++y) {
    std::uint8_t* const to = target.GetRow(y) + seen.x * 4;
    const std::uint8_t* const from = layer.picture->GetRow(y - layer.y) + (seen.x - layer.x) * 4;
    if (layer.picture->isOpaque)
      std::memcpy(to, from, static_cast<std::size_t>(seen.width) * 4);
    else
      BlendRow(to, from, seen.width);
  }
}

bool CoversAll(const CLayer& layer, const CPicture& target) {
  return layer.picture->isOpaque && SeenOf(layer, target) == CPixelBox{0, 0, target.GetWidth(), target.GetHeight()};
}

}  // namespace

bool IsWholePicture(const CLayer& layer, int width, int height) {
  const CPixelBox whole{0, 0, width, height};
  return layer.picture && layer.x == 0 && layer.y == 0 && layer.picture->GetWidth() == width &&
         layer.picture->GetHeight() == height && Intersection(layer.visible, whole) == whole;
}

void Compose(const std::vector<CLayer>& layers, CPicture& target) {
  std::size_t first = 0;
  for (std::size_t index = 0; index < layers.size(); ++index)
    if (CoversAll(layers[index], target)) first = index;
  if (layers.empty() || !CoversAll(layers[first], target))
    for (int y = 0; y < target.GetHeight(); ++y)
      std::memset(target.GetRow(y), 0, static_cast<std::size_t>(target.GetWidth()) * 4);
  for (std::size_t index = first; index < layers.size(); ++index) Lay(layers[index], target);
  target.isOpaque = false;
}

}  // namespace vantra::ffmpeg
