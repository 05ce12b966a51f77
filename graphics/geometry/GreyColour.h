#pragma once

#include <wx/colour.h>

namespace graphics {

/// The colour as a grey: its channels by the given weights, summed, plus 0.5, truncated, of that the low eight bits,
/// in all three channels. Alpha stays.
wxColour GreyColour(const wxColour& colour, double redWeight, double greenWeight, double blueWeight);

/// What the colours of pens and brushes become: as bright as it was, and opaque.
wxColour GreyOfShape(const wxColour& colour);

}  // namespace graphics
