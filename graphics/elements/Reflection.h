#pragma once

#include "graphics/paint/native/BitmapPixels.h"

namespace graphics {

/// Turns the rows upside down.
void FlipRows(const CPixels& pixels);

/// Limits the alpha of each row of a reflection: 100 in its first row, evenly falling towards 0 at its full height. The
/// picture is the part of the reflection that begins at firstRow.
void FadeRows(const CPixels& pixels, int firstRow, int fullHeight);

}  // namespace graphics
