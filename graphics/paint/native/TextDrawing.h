#pragma once

#include "graphics/paint/native/TextLayout.h"

namespace graphics {

/// Draws the text with its top left corner at the origin of the context's transform. Letters stand at quarters of a
/// pixel instead of whole ones, so that the spaces between them are even; lines of upright text stand on whole pixels.
void DrawTextLayout(wxGraphicsContext& context, const std::shared_ptr<const CTextLayout>& layout,
                    const wxColour& colour);

}  // namespace graphics
