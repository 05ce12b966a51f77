#pragma once

#include <wx/bitmap.h>

namespace graphics {

/// Pictures of the same size that show how opaque a bitmap is.

/// Red, green and blue become the source's alpha, under the same alpha. The bitmap must have alpha.
wxBitmap AlphaAsGreyOf(const wxBitmap& bitmap);
/// White everywhere, under the source's alpha. The bitmap must have alpha.
wxBitmap WhiteWithAlphaOf(const wxBitmap& bitmap);
/// Black where the bitmap's mask lets through, else white; nothing in between.
wxBitmap BlackAndWhiteOf(const wxBitmap& bitmap);

/// The same colours; where the bitmap's mask lets through, nothing, elsewhere opaque.
wxBitmap MaskAsAlphaOf(const wxBitmap& bitmap);

/// Each pixel gets the smaller alpha of both. The bitmaps must be such as MakeAlphaBitmap makes; what the mask doesn't
/// reach becomes transparent.
void LimitAlpha(const wxBitmap& bitmap, const wxBitmap& mask);

/// The colours of the one and, as alpha, the red of the other as it looks on black, at most limit. Pixels that the mask
/// doesn't reach become transparent.
wxBitmap MergeAlphaMask(const wxBitmap& colour, const wxBitmap& mask, int limit);

}  // namespace graphics
