#pragma once

#include "graphics/geometry/DoubleRect.h"

#include <wx/dc.h>
#include <wx/string.h>

class wxBitmap;

namespace graphics {

/// A hint text in the middle of a rectangle of pixels, under the icon if one is given. What doesn't fit into the
/// rectangle is left out: the icon first, then the text.
void DrawCentredHint(wxDC& dc, const wxString& text, const CDoubleRect& rect, bool bold,
                     const wxBitmap* icon = nullptr);

}  // namespace graphics
