#pragma once

#include "foundation/Object.h"
#include "graphics/model/ElementFactory.h"

namespace graphics::animation {

/// Makes animated images, by the name "animation-image". Each new factory registers the kinds of animation of this
/// folder once more, which does no harm.
class CGraphicElementAnimationFactory : public orlo::CObject, public virtual IGraphicElementFactory {
public:
  CGraphicElementAnimationFactory();

  orlo::P<CGraphicElement> CreateElement(const wxString& typeName) override;
};

}  // namespace graphics::animation
