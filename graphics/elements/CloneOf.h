#pragma once

#include "foundation/Pointer.h"
#include "graphics/model/GraphicElement.h"

namespace graphics {

/// A new element of the kind, assigned from the given one.
template <class Element>
orlo::P<CGraphicElement> CloneOf(const Element& element) {
  const auto clone = orlo::makeObject<Element>();
  clone->Assign(element);
  return clone;
}

}  // namespace graphics
