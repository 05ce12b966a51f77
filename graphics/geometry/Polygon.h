#pragma once

#include "graphics/geometry/DoublePoint.h"

#include <wx/gdicmn.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace graphics {

/// An outline of up to 20 points, each also in its truncated pixel form.
struct CPolygon {
  static constexpr std::int32_t kCapacity = 20;

  std::array<CDoublePoint, kCapacity> points;
  std::array<wxPoint, kCapacity> pixels;
  std::int32_t count = 0;

  /// False, and nothing is stored, if there is no more room.
  bool Append(CDoublePoint point) {
    if (count >= kCapacity) return false;
    points[static_cast<std::size_t>(count)] = point;
    pixels[static_cast<std::size_t>(count)] = point.ToPoint();
    ++count;
    return true;
  }
};

}  // namespace graphics
