#include "graphics/elements/GraphicPoint.h"

#include "graphics/elements/CloneOf.h"

namespace graphics {

orlo::P<CGraphicElement> CGraphicPoint::Clone() const {
  return CloneOf(*this);
}

}  // namespace graphics
