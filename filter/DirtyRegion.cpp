#include "filter/DirtyRegion.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace authfilter {

namespace {

std::int64_t areaOf(const wxRect& rect) {
  return std::int64_t{rect.width} * rect.height;
}

/// The pixels that the rectangle round both has beyond those of the two.
std::int64_t wasteOf(const wxRect& a, const wxRect& b) {
  return areaOf(a.Union(b)) - areaOf(a) - areaOf(b);
}

/// One rectangle is quicker to paint than two as long as it isn't much larger.
bool belongTogether(const wxRect& a, const wxRect& b) {
  return a.Intersects(b) || wasteOf(a, b) <= (areaOf(a) + areaOf(b)) / 8;
}

}  // namespace

void CDirtyRegion::Add(wxRect rect) {
  if (rect.IsEmpty()) return;
  const auto joins = [&](const wxRect& other) { return belongTogether(rect, other); };
  for (auto found = rects_.begin(); (found = std::find_if(rects_.begin(), rects_.end(), joins)) != rects_.end();) {
    rect.Union(*found);
    rects_.erase(found);
  }
  rects_.push_back(rect);
  if (rects_.size() > kMostRects) JoinBestPair();
}

bool CDirtyRegion::Touches(const wxRect& rect) const {
  return std::any_of(rects_.begin(), rects_.end(), [&](const wxRect& dirty) { return dirty.Intersects(rect); });
}

void CDirtyRegion::JoinBestPair() {
  std::size_t first = 0, second = 1;
  std::int64_t least = std::numeric_limits<std::int64_t>::max();
  for (std::size_t a = 0; a < rects_.size(); ++a)
    for (std::size_t b = a + 1; b < rects_.size(); ++b)
      if (const std::int64_t waste = wasteOf(rects_[a], rects_[b]); waste < least) {
        least = waste;
        first = a;
        second = b;
      }
  const wxRect joined = rects_[first].Union(rects_[second]);
  rects_.erase(rects_.begin() + static_cast<std::ptrdiff_t>(second));
  rects_.erase(rects_.begin() + static_cast<std::ptrdiff_t>(first));
  Add(joined);
}

}  // namespace authfilter
