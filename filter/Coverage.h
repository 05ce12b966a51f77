#pragma once

#include "graphics/paint/native/BitmapPixels.h"

#include <wx/gdicmn.h>

#include <cstdint>
#include <span>
#include <vector>

namespace authfilter {

/// Which pixels of a picture are not fully transparent, as runs row by row. A picture that touches little of a page
/// costs little to lay over it.
class CCoverage {
public:
  struct CRun {
    std::int32_t x = 0;
    std::int32_t count = 0;
    /// The picture hides what lies below, and is worth copying instead of blending.
    bool opaque = false;
  };

  CCoverage() = default;
  explicit CCoverage(const graphics::CPixels& picture);
  /// One run a row. If it is not opaque, any pixel may be anything.
  static CCoverage Whole(std::int32_t width, std::int32_t height, bool opaque);

  /// The runs of a row from left to right. They don't overlap.
  std::span<const CRun> Row(std::int32_t y) const;
  /// Those that reach into a part of the row.
  std::span<const CRun> Row(std::int32_t y, std::int32_t begin, std::int32_t end) const;

  /// The smallest rectangle that holds all runs, empty if there is none.
  wxRect GetBounds() const;
  /// The picture is cut to a part that holds all runs.
  void CutTo(const wxRect& part);

private:
  void AddRow(const std::uint8_t* pixels, std::int32_t width);

  std::vector<CRun> runs_;
  std::vector<std::size_t> rowEnds_;
};

}  // namespace authfilter
