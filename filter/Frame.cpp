#include "filter/Frame.h"

#include "filter/Blend.h"

#include <cstring>

namespace authfilter {

namespace {

constexpr std::ptrdiff_t kBytesPerPixel = 4;

void copyPixels(std::uint8_t* out, const std::uint8_t* in, std::ptrdiff_t begin, std::ptrdiff_t end) {
  std::memcpy(out + begin * kBytesPerPixel, in + begin * kBytesPerPixel,
              static_cast<std::size_t>((end - begin) * kBytesPerPixel));
}

}  // namespace

CFrame::CFrame(wxBitmap& bitmap, graphics::CBitmapSurface& surface, CBackground background,
               const graphics::CTransform& pageTransform)
    : bitmap_(bitmap), surface_(surface), background_(background), context_(nullptr, 0) {
  const graphics::CPixels page = surface_.Pixels();
  context_.rect = {0, 0, static_cast<double>(page.width), static_cast<double>(page.height)};
  context_.clip = context_.rect;
  context_.matrix = pageTransform.GetCurrent();
}

CFrame::~CFrame() {
  SettleBackground();
  dc_.reset();
  surface_.Flush();
}

void CFrame::Blend(const graphics::CPixels& picture, const CCoverage& coverage) {
  static const BlendPixels blendPixels = fastestBlendPixels();

  surface_.Flush();
  const graphics::CPixels page = surface_.Pixels();
  const bool inPlace = background_.rows == nullptr;
  for (std::int32_t y = 0; y < page.height; ++y) {
    std::uint8_t* out = page.Row(y);
    const std::uint8_t* below = inPlace ? out : background_.rows + y * background_.stride;
    const std::uint8_t* above = picture.Row(y);
    std::ptrdiff_t settled = 0;
    for (const CCoverage::CRun& run : coverage.Row(y)) {
      if (!inPlace) copyPixels(out, below, settled, run.x);
      settled = run.x + run.count;
      const std::ptrdiff_t offset = run.x * kBytesPerPixel;
      if (run.opaque)
        copyPixels(out, above, run.x, settled);
      else
        blendPixels(out + offset, below + offset, above + offset, static_cast<std::size_t>(run.count));
    }
    if (!inPlace) copyPixels(out, below, settled, page.width);
  }
  background_ = {};
  surface_.MarkDirty();
}

graphics::CPaintContext& CFrame::Draw() {
  if (!dc_) {
    SettleBackground();
    lock_.emplace();
    dc_.emplace(bitmap_);
    context_.dc = &*dc_;
  }
  return context_;
}

void CFrame::SettleBackground() {
  if (!background_.rows) return;
  surface_.Flush();
  const graphics::CPixels page = surface_.Pixels();
  for (std::int32_t y = 0; y < page.height; ++y)
    copyPixels(page.Row(y), background_.rows + y * background_.stride, 0, page.width);
  background_ = {};
  surface_.MarkDirty();
}

}  // namespace authfilter
