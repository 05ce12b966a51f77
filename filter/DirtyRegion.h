#pragma once

#include <wx/gdicmn.h>

#include <cstddef>
#include <vector>

namespace authfilter {

/// The pixels that a repaint paints, as a few rectangles that share no pixel.
class CDirtyRegion {
public:
  /// Beyond this the two go together that lie best.
  static constexpr std::size_t kMostRects = 16;

  CDirtyRegion() = default;
  explicit CDirtyRegion(const wxRect& rect) { Add(rect); }

  /// A rectangle that overlaps others, or that makes a good rectangle with one, goes together with them. An empty one
  /// adds nothing.
  void Add(wxRect rect);
  bool IsEmpty() const { return rects_.empty(); }
  bool Touches(const wxRect& rect) const;
  const std::vector<wxRect>& GetRects() const { return rects_; }

private:
  void JoinBestPair();

  std::vector<wxRect> rects_;
};

}  // namespace authfilter
