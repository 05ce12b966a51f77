#pragma once

#include "authed/data/ScaleMode.h"
#include "graphics/geometry/DoubleRect.h"

#include <wx/bitmap.h>

namespace graphics {
class TEffectGraphicsContext;
}

namespace authed::data {

/// A movie's picture in a rectangle of the context's units. Nothing for a bitmap that isn't ok, and for a mode that
/// isn't one. A picture that comes out in its own size but for a part of a pixel is not scaled: it lies on whole
/// pixels.
void PaintThumbnail(graphics::TEffectGraphicsContext& context, const graphics::CDoubleRect& rect,
                    const wxBitmap& bitmap, EScaleMode mode);

}  // namespace authed::data
