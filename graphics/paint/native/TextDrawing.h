#pragma once

#include "graphics/paint/native/TextLayout.h"

namespace graphics {

/// Letters of a line that are drawn; no picture shows more.
constexpr std::size_t kLongestDrawnText = 10'000;

/// False where the font library would fail on the letters' size.
bool CanDrawLetters(const wxGraphicsContext& context, const wxFont& font);

/// Draws the text with its top left corner at the origin of the context's transform. Letters stand at quarters of a
/// pixel instead of whole ones, so that the spaces between them are even; lines of upright text stand on whole pixels.
void DrawTextLayout(wxGraphicsContext& context, const std::shared_ptr<const CTextLayout>& layout,
                    const wxColour& colour);

}  // namespace graphics
