#include "filter/Frame.h"

#include "filter/Blend.h"

#include <algorithm>
#include <cstring>

namespace authfilter {

namespace {

constexpr std::ptrdiff_t kBytesPerPixel = 4;

void copyPixels(std::uint8_t* out, const std::uint8_t* in, std::ptrdiff_t begin, std::ptrdiff_t end) {
  std::memcpy(out + begin * kBytesPerPixel, in + begin * kBytesPerPixel,
              static_cast<std::size_t>((end - begin) * kBytesPerPixel));
}

}  // namespace

CFrame::~CFrame() {
  if (!background_.rows) return;
  for (const wxRect& dirty : region_.GetRects())
    for (int y = dirty.y; y < dirty.y + dirty.height; ++y)
      copyPixels(pixels_.Row(y), background_.rows + y * background_.stride, dirty.x, dirty.x + dirty.width);
}

void CFrame::Blend(const CLayerPicture& picture) {
  const bool inPlace = background_.rows == nullptr;
  for (const wxRect& dirty : region_.GetRects()) {
    const wxRect rows = inPlace ? dirty.Intersect(picture.GetArea()) : dirty;
    for (int y = rows.y; y < rows.y + rows.height; ++y) BlendRow(y, rows, picture);
  }
  background_ = {};
}

void CFrame::BlendRow(int y, const wxRect& part, const CLayerPicture& picture) {
  static const BlendPixels blendPixels = fastestBlendPixels();

  const wxRect& area = picture.GetArea();
  const int begin = part.x, end = part.x + part.width;
  const bool inPlace = background_.rows == nullptr;
  std::uint8_t* const out = pixels_.Row(y);
  const std::uint8_t* const below = inPlace ? out : background_.rows + y * background_.stride;
  int settled = begin;
  if (y >= area.y && y < area.y + area.height) {
    const std::uint8_t* const above = picture.Row(y - area.y);
    for (const CCoverage::CRun& run : picture.Coverage().Row(y - area.y, begin - area.x, end - area.x)) {
      const int from = std::max(run.x + area.x, begin);
      const int to = std::min(run.x + area.x + run.count, end);
      if (!inPlace) copyPixels(out, below, settled, from);
      settled = to;
      const std::uint8_t* const source = above + (from - area.x) * kBytesPerPixel;
      if (run.opaque)
        std::memcpy(out + from * kBytesPerPixel, source, static_cast<std::size_t>((to - from) * kBytesPerPixel));
      else
        blendPixels(out + from * kBytesPerPixel, below + from * kBytesPerPixel, source,
                    static_cast<std::size_t>(to - from));
    }
  }
  if (!inPlace) copyPixels(out, below, settled, end);
}

}  // namespace authfilter
