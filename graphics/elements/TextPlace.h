#pragma once

#include "graphics/geometry/DoubleSize.h"
#include "graphics/model/GraphicElement.h"
#include "graphics/paint/EffectGraphicsContext.h"
#include "graphics/paint/PaintContext.h"

namespace graphics {

/// From the pixels that a text is laid out in to those of the device: the middle of the text's own box, which is the
/// origin here, comes to lie on a point of the device.
inline wxGraphicsMatrix TextPlace(TEffectGraphicsContext& target, CDoublePoint centre, const CPaintContext& context,
                                  const CGraphicElement& element) {
  const CDoubleSize natural = context.GetDeviceScale();
  const double scaleX = context.matrix.GetScaleX() / natural.width;
  const double scaleY = context.matrix.GetScaleY() / natural.height;
  wxGraphicsMatrix matrix = target.CreateMatrix(1, 0, 0, 1, 0, 0);
  matrix.Concat(target.GetTransform());
  matrix.Translate(centre.x, centre.y);
  matrix.Scale(element.GetMirror(0) ? -scaleX : scaleX, element.GetMirror(1) ? -scaleY : scaleY);
  return matrix;
}

}  // namespace graphics
