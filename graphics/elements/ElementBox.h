#pragma once

#include "graphics/geometry/DoubleRect.h"
#include "graphics/model/GraphicBase.h"
#include "graphics/paint/PaintContext.h"

namespace graphics {

/// The frame of an element, unrotated, on the page.
inline CDoubleRect FrameOf(const CGraphicBase& element) {
  return CDoubleRect::FromCenter(element.GetCenter(), element.GetSize());
}

/// The frame on the device, grown to whole pixels.
inline CDoubleRect BoxOf(const CGraphicBase& element, const CPaintContext& context) {
  return context.matrix.MapRect(FrameOf(element)).Inflated();
}

}  // namespace graphics
