#pragma once

#include <algorithm>

namespace graphics {

/// Width and height in page units or pixels.
struct CDoubleSize {
  double width = 0;
  double height = 0;

  /// Scaled, with its aspect ratio kept, to the largest size that fits into the given one.
  constexpr CDoubleSize FitInto(CDoubleSize size) const {
    const double factor = std::min(size.width / width, size.height / height);
    return {width * factor, height * factor};
  }

  bool operator==(const CDoubleSize&) const = default;
};

}  // namespace graphics
