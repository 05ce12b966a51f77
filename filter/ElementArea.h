#pragma once

#include "filter/PageGeometry.h"
#include "graphics/model/GraphicElement.h"

namespace authfilter {

/// The pixels of the frame that an element may touch when it is painted; all of them for what a skin paints and for a
/// kind of which nothing else is known. Takes no lock.
wxRect AreaOf(const graphics::CGraphicElement& element, const CPageGeometry& geometry);

}  // namespace authfilter
