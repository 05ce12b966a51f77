#include "filter/ExclusiveLayer.h"

#include "foundation/Cast.h"
#include "graphics/animation/AnimationElement.h"

namespace authfilter {

CExclusiveLayer::CExclusiveLayer(const orlo::P<graphics::CGraphicDocument>& document, std::int64_t frameRateNum,
                                 std::int64_t frameRateDen)
    : CLayer(document) {
  for (std::size_t index = 0; index < document->GetCount(); ++index) {
    const auto* const element = orlo::tryCast<graphics::animation::IAnimationElement>(document->GetElement(index));
    if (element && element->HasAnimation())
      animations_.push_back(orlo::makeObject<CFPSAnimation>(element->GetAnimation(), frameRateNum, frameRateDen));
  }
}

bool CExclusiveLayer::NextFrame() {
  bool runs = false;
  for (const auto& animation : animations_)
    if (animation->Next()) runs = true;
  return runs;
}

void CExclusiveLayer::Open(const wxString&, const wxString&, const wxString&) {
  for (const auto& animation : animations_) animation->Start();
}

void CExclusiveLayer::Close() {
  for (const auto& animation : animations_) animation->Stop();
}

}  // namespace authfilter
