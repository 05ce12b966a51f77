#pragma once

#include "graphics/geometry/Angles.h"
#include "graphics/model/GraphicElement.h"
#include "graphics/paint/EffectGraphicsContext.h"

#include <cmath>

namespace graphics {

/// The context's transform, then turned and mirrored about the centre, in device pixels, as the element is. A rotation
/// of 0.001 degrees or less is none.
inline wxGraphicsMatrix TurnedAbout(TEffectGraphicsContext& context, CDoublePoint centre,
                                    const CGraphicElement& element) {
  constexpr double kSmallestRotation = 0.001;
  wxGraphicsMatrix matrix = context.CreateMatrix(1, 0, 0, 1, 0, 0);
  matrix.Concat(context.GetTransform());
  matrix.Translate(centre.x, centre.y);
  if (std::abs(element.GetRotation()) > kSmallestRotation) matrix.Rotate(DegToRad(element.GetRotation()));
  matrix.Scale(element.GetMirror(0) ? -1.0 : 1.0, element.GetMirror(1) ? -1.0 : 1.0);
  matrix.Translate(-centre.x, -centre.y);
  return matrix;
}

}  // namespace graphics
