#pragma once

#include <wx/bitmap.h>
#include <wx/image.h>

namespace graphics {

// The toolkit's own conversions leave a second copy of the pixels in the bitmap, for the next conversion.

/// Holds the pixels once, as the surface that they are drawn from. Not ok for an image that isn't, and where there is
/// no memory.
wxBitmap BitmapOf(const wxImage& image);

/// A mask becomes alpha.
wxImage ImageOf(const wxBitmap& bitmap);

}  // namespace graphics
