#include "graphics/elements/GraphicDummy.h"

#include "graphics/elements/CloneOf.h"

#include <algorithm>

namespace graphics {

void CGraphicDummy::SetSize(CDoubleSize size) {
  CGraphicElement::SetSize({std::max(minSize_.width, size.width), std::max(minSize_.height, size.height)});
}

void CGraphicDummy::Assign(const CGraphicBase& other) {
  if (const auto* const dummy = dynamic_cast<const CGraphicDummy*>(&other)) minSize_ = dummy->minSize_;
  CGraphicElement::Assign(other);
}

orlo::P<CGraphicElement> CGraphicDummy::Clone() const {
  return CloneOf(*this);
}

}  // namespace graphics
