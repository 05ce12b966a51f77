#include "graphics/animation/GraphicElementAnimationFactory.h"

#include "graphics/animation/Animation.h"
#include "graphics/animation/AnimationTypes.h"
#include "graphics/animation/GIFAnimation.h"
#include "graphics/animation/GraphicAnimationImage.h"

namespace graphics::animation {

CGraphicElementAnimationFactory::CGraphicElementAnimationFactory() {
  RegisterAnimationType(orlo::makeObject<CAnimation>(CAnimation::kAutomaticDelay));
  RegisterAnimationType(orlo::makeObject<CGIFAnimation>());
}

orlo::P<CGraphicElement> CGraphicElementAnimationFactory::CreateElement(const wxString& typeName) {
  if (!typeName.IsSameAs("animation-image", false)) return nullptr;
  return orlo::makeObject<CGraphicAnimationImage>();
}

}  // namespace graphics::animation
