#pragma once

#include "graphics/geometry/DoubleSize.h"

#include <algorithm>
#include <cstddef>

namespace graphics::skin {

/// The size of the first part as it stands, raised on each axis by the others. Nothing without parts.
template <class Parts, class SizeOf>
CDoubleSize LargestOf(const Parts& parts, SizeOf sizeOf) {
  if (parts.empty()) return {};
  CDoubleSize largest = sizeOf(*parts.front());
  for (std::size_t i = 1; i < parts.size(); ++i) {
    const CDoubleSize size = sizeOf(*parts[i]);
    largest = {std::max(largest.width, size.width), std::max(largest.height, size.height)};
  }
  return largest;
}

}  // namespace graphics::skin
