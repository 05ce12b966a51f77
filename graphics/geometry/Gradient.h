#pragma once

#include <wx/colour.h>

namespace graphics {

/// Two colours to fade between.
struct CGradient {
  wxColour start;
  wxColour end;
  /// The gradient is in use.
  bool ok = false;
};

}  // namespace graphics
