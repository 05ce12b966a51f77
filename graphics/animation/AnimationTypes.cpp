#include "graphics/animation/AnimationTypes.h"

#include <vector>

namespace graphics::animation {

namespace {

std::vector<orlo::P<IAnimation>>& Prototypes() {
  static std::vector<orlo::P<IAnimation>> prototypes;
  return prototypes;
}

}  // namespace

void RegisterAnimationType(const orlo::P<IAnimation>& prototype) {
  Prototypes().push_back(prototype);
}

orlo::P<IAnimation> CreateAnimation(const wxString& type) {
  for (const orlo::P<IAnimation>& prototype : Prototypes())
    if (prototype->GetTypeName() == type) return prototype->CreateNew();
  return nullptr;
}

}  // namespace graphics::animation
