#pragma once

#include "graphics/model/GraphicElement.h"
#include "graphics/paint/PaintContext.h"

namespace graphics {

/// What an author sees of an element whose picture is missing: its frame, and in it the invitation to choose one. Bit 2
/// of the element's flags takes the frame away, bit 4 brings it back.
void DrawPictureHint(CPaintContext& context, const CGraphicElement& element);

}  // namespace graphics
