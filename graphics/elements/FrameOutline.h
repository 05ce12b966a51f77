#pragma once

#include "graphics/geometry/RectPoints.h"
#include "graphics/model/GraphicElement.h"
#include "graphics/paint/PaintContext.h"

#include <wx/colour.h>

namespace graphics {

/// The corners of the element's frame on the device, turned as the element is.
CRectPoints OutlineOf(const CGraphicElement& element, const CPaintContext& context);

/// The outline in a solid line of one pixel.
void DrawFrameOutline(CPaintContext& context, const CGraphicElement& element, const wxColour& colour);

}  // namespace graphics
