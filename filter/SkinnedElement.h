#pragma once

#include "filter/PageGeometry.h"
#include "graphics/model/GraphicElement.h"

#include <optional>

namespace authfilter {

/// False for a button or movie image whose skin has no place for the movie.
bool ShowsAnimation(const graphics::CGraphicElement& element);

/// True for a button or movie image that is painted by its skin.
bool HasSkin(const graphics::CGraphicElement& element);

/// The pixels that the pictures of an element's skin may touch, what moves in them included: all of the frame if they
/// are not bounded by anything. The texts of the skin, which don't move, may lie elsewhere. Takes the toolkit's lock.
wxRect SkinAreaOf(graphics::CGraphicElement& element, const CPageGeometry& geometry);

}  // namespace authfilter
