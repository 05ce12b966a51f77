#pragma once

#include "graphics/geometry/Matrix.h"

#include <wx/gdicmn.h>

namespace authfilter {

/// How a page lies in the frame.
struct CPageGeometry {
  /// Page units to pixels.
  graphics::CMatrix matrix;
  /// The frame, from (0, 0).
  wxRect frame;
};

}  // namespace authfilter
