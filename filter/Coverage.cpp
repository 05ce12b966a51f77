#include "filter/Coverage.h"

#include <algorithm>

namespace authfilter {

namespace {

// A run shorter than this costs more to tell apart than to blend with its neighbours.
constexpr std::int32_t kShortRun = 16;
// A row with a gap in what is read of the input takes longer than one that is read and blended throughout, so that only
// a long run is worth copying without a look at what lies below.
constexpr std::int32_t kWorthCopying = 1024;

enum class EKind { transparent, translucent, opaque };

EKind kindOf(std::uint32_t pixel) {
  if (pixel == 0) return EKind::transparent;
  return (pixel >> 24) == 255 ? EKind::opaque : EKind::translucent;
}

std::uint32_t pixelAt(const std::uint8_t* row, std::int32_t x) {
  const std::uint8_t* bytes = row + static_cast<std::ptrdiff_t>(x) * 4;
  return static_cast<std::uint32_t>(bytes[0]) | static_cast<std::uint32_t>(bytes[1]) << 8 |
         static_cast<std::uint32_t>(bytes[2]) << 16 | static_cast<std::uint32_t>(bytes[3]) << 24;
}

}  // namespace

CCoverage::CCoverage(const graphics::CPixels& picture) {
  rowEnds_.reserve(static_cast<std::size_t>(picture.height));
  for (std::int32_t y = 0; y < picture.height; ++y) {
    AddRow(picture.Row(y), picture.width);
    rowEnds_.push_back(runs_.size());
  }
  runs_.shrink_to_fit();
}

CCoverage CCoverage::Whole(std::int32_t width, std::int32_t height, bool opaque) {
  CCoverage coverage;
  coverage.runs_.assign(static_cast<std::size_t>(height), {0, width, opaque});
  for (std::int32_t y = 0; y < height; ++y) coverage.rowEnds_.push_back(static_cast<std::size_t>(y) + 1);
  return coverage;
}

std::span<const CCoverage::CRun> CCoverage::Row(std::int32_t y) const {
  const auto row = static_cast<std::size_t>(y);
  const std::size_t begin = row == 0 ? 0 : rowEnds_[row - 1];
  return std::span(runs_).subspan(begin, rowEnds_[row] - begin);
}

std::span<const CCoverage::CRun> CCoverage::Row(std::int32_t y, std::int32_t begin, std::int32_t end) const {
  const auto row = Row(y);
  const auto first =
      std::partition_point(row.begin(), row.end(), [&](const CRun& run) { return run.x + run.count <= begin; });
  const auto last = std::partition_point(first, row.end(), [&](const CRun& run) { return run.x < end; });
  return {first, last};
}

wxRect CCoverage::GetBounds() const {
  wxRect bounds;
  for (std::int32_t y = 0; y < static_cast<std::int32_t>(rowEnds_.size()); ++y)
    if (const auto row = Row(y); !row.empty())
      bounds.Union(wxRect(row.front().x, y, row.back().x + row.back().count - row.front().x, 1));
  return bounds;
}

void CCoverage::CutTo(const wxRect& part) {
  // The rows that go have no runs.
  rowEnds_.erase(rowEnds_.begin(), rowEnds_.begin() + part.y);
  rowEnds_.resize(static_cast<std::size_t>(part.height));
  for (CRun& run : runs_) run.x -= part.x;
}

void CCoverage::AddRow(const std::uint8_t* pixels, std::int32_t width) {
  const std::size_t rowBegin = runs_.size();
  for (std::int32_t x = 0; x < width;) {
    const EKind kind = kindOf(pixelAt(pixels, x));
    const std::int32_t begin = x;
    while (x < width && kindOf(pixelAt(pixels, x)) == kind) ++x;
    if (kind == EKind::transparent) continue;

    // Blending is right for every kind of pixel, so short runs and short gaps join what stands before them.
    const CRun run{begin, x - begin, kind == EKind::opaque && x - begin >= kWorthCopying};
    CRun* last = runs_.size() > rowBegin ? &runs_.back() : nullptr;
    const bool near = last && begin - (last->x + last->count) < kShortRun;
    const bool bothLong = last && last->count >= kShortRun && run.count >= kShortRun;
    if (near && !bothLong) {
      last->count = x - last->x;
      last->opaque = false;
    } else {
      runs_.push_back(run);
    }
  }
}

}  // namespace authfilter
