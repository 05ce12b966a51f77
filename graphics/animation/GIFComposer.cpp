#include "graphics/animation/GIFComposer.h"

#include "graphics/animation/GIFPixels.h"
#include "graphics/paint/native/BitmapPixels.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

namespace graphics::animation {

namespace {

std::uint32_t OpaquePixel(unsigned red, unsigned green, unsigned blue) {
  return 0xFF000000U | red << 16 | green << 8 | blue;
}

constexpr std::uint32_t kNothing = 0;

/// What each index draws; indices without a colour draw nothing.
std::array<std::uint32_t, 256> ColoursOf(const CGIFFrame& frame) {
  std::array<std::uint32_t, 256> colours{};
  for (std::size_t index = 0; 3 * index + 2 < frame.palette.size(); ++index)
    colours[index] = OpaquePixel(frame.palette[3 * index], frame.palette[3 * index + 1], frame.palette[3 * index + 2]);
  if (frame.transparent >= 0) colours[static_cast<std::size_t>(frame.transparent)] = kNothing;
  return colours;
}

/// The rows of a frame in the order in which the file has them.
std::vector<int> RowOrder(const CGIFFrame& frame) {
  struct CPass {
    int first, step;
  };
  static constexpr CPass kPlain[] = {{0, 1}};
  static constexpr CPass kInterlaced[] = {{0, 8}, {4, 8}, {2, 4}, {1, 2}};
  std::vector<int> order;
  order.reserve(static_cast<std::size_t>(frame.height));
  for (const CPass& pass : frame.interlaced ? std::span<const CPass>(kInterlaced) : std::span<const CPass>(kPlain))
    for (int row = pass.first; row < frame.height; row += pass.step) order.push_back(row);
  return order;
}

}  // namespace

CGIFComposer::CGIFComposer(const CGIFFile& file) : file_(file) {
  const CGIFFile::CColour colour = file.background.value_or(CGIFFile::CColour());
  background_ = OpaquePixel(colour.red, colour.green, colour.blue);
  // Tells of a size that no bitmap can have before any other memory is taken.
  bitmap_ = MakeAlphaBitmap(file.width, file.height);
  screen_.assign(static_cast<std::size_t>(file.width) * static_cast<std::size_t>(file.height), background_);
  picture_ = screen_;
}

wxBitmap CGIFComposer::Compose(const CGIFFrame& frame) {
  const CArea area = Clip(frame);
  Draw(frame, area);
  if (!ShowsPicture()) {
    bitmap_ = MakeAlphaBitmap(file_.width, file_.height);
    const CBitmapSurface surface(bitmap_);
    for (int y = 0; y < file_.height; ++y)
      std::memcpy(surface.Pixels().Row(y), Row(picture_, y), static_cast<std::size_t>(file_.width) * sizeof(CPixel));
    surface.MarkDirty();
  }
  Dispose(frame, area);
  return bitmap_;
}

CGIFComposer::CArea CGIFComposer::Clip(const CGIFFrame& frame) const {
  return {std::min(frame.left, file_.width), std::min(frame.top, file_.height),
          std::min(frame.left + frame.width, file_.width), std::min(frame.top + frame.height, file_.height)};
}

CGIFComposer::CPixel* CGIFComposer::Row(std::vector<CPixel>& pixels, int y) const {
  return pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(file_.width);
}

void CGIFComposer::Draw(const CGIFFrame& frame, const CArea& area) {
  const std::vector<std::uint8_t> indices = DecodeGIFPixels(frame);
  const std::array<CPixel, 256> colours = ColoursOf(frame);
  std::size_t start = 0;
  for (const int row : RowOrder(frame)) {
    if (start >= indices.size()) break;
    const int y = frame.top + row;
    const auto whole = static_cast<std::size_t>(area.right - area.left);
    const std::size_t count = y < area.bottom ? std::min(whole, indices.size() - start) : 0;
    CPixel* const out = y < area.bottom ? Row(picture_, y) + area.left : nullptr;
    for (std::size_t x = 0; x < count; ++x)
      if (const CPixel colour = colours[indices[start + x]]; colour != kNothing) out[x] = colour;
    start += static_cast<std::size_t>(frame.width);
  }
}

void CGIFComposer::Dispose(const CGIFFrame& frame, const CArea& area) {
  using enum CGIFFrame::EDisposal;
  const auto width = static_cast<std::size_t>(area.right - area.left);
  const bool keeps = frame.disposal == unspecified || frame.disposal == keep;
  for (int y = area.top; y < area.bottom; ++y) {
    CPixel* const below = Row(screen_, y) + area.left;
    CPixel* const shown = Row(picture_, y) + area.left;
    if (keeps) {
      std::copy_n(shown, width, below);
      continue;
    }
    if (frame.disposal == toBackground) std::fill_n(below, width, background_);
    std::copy_n(below, width, shown);
  }
}

bool CGIFComposer::ShowsPicture() const {
  const CBitmapSurface surface(bitmap_);
  const std::size_t rowBytes = static_cast<std::size_t>(file_.width) * sizeof(CPixel);
  for (int y = 0; y < file_.height; ++y)
    if (std::memcmp(surface.Pixels().Row(y),
                    picture_.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(file_.width),
                    rowBytes) != 0)
      return false;
  return true;
}

}  // namespace graphics::animation
