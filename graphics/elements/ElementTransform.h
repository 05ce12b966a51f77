#pragma once

#include "graphics/geometry/Angles.h"
#include "graphics/model/GraphicElement.h"
#include "graphics/paint/EffectGraphicsContext.h"

#include <cmath>

namespace graphics {

/// The rotation that an element is painted with, in radians. One of 0.001 degrees or less is none, and neither is one
/// that is no number.
inline double PaintedRotationOf(const CGraphicElement& element) {
  constexpr double kSmallestRotation = 0.001;
  return std::abs(element.GetRotation()) > kSmallestRotation ? DegToRad(element.GetRotation()) : 0.0;
}

/// The context's transform, then turned and mirrored about the centre, in device pixels, as the element is.
inline wxGraphicsMatrix TurnedAbout(TEffectGraphicsContext& context, CDoublePoint centre,
                                    const CGraphicElement& element) {
  wxGraphicsMatrix matrix = context.CreateMatrix(1, 0, 0, 1, 0, 0);
  matrix.Concat(context.GetTransform());
  matrix.Translate(centre.x, centre.y);
  if (const double angle = PaintedRotationOf(element); angle != 0) matrix.Rotate(angle);
  matrix.Scale(element.GetMirror(0) ? -1.0 : 1.0, element.GetMirror(1) ? -1.0 : 1.0);
  matrix.Translate(-centre.x, -centre.y);
  return matrix;
}

}  // namespace graphics
