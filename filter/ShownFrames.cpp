#include "filter/ShownFrames.h"

#include "foundation/Cast.h"
#include "graphics/animation/AnimationElement.h"
#include "graphics/elements/GraphicMirror.h"

#include <algorithm>

namespace authfilter {

bool CShownFrames::HaveChanged() const {
  return std::any_of(sources_.begin(), sources_.end(),
                     [](const CSource& source) { return ShownBy(*source.animation) != source.painted; });
}

void CShownFrames::Remember() {
  for (CSource& source : sources_) source.painted = ShownBy(*source.animation);
}

/// Mirrors that nest deeper than this are never painted.
void CShownFrames::Collect(const graphics::CGraphicDocument& document, int depth) {
  if (depth > graphics::kMaxMirrorDepth) return;
  for (std::size_t index = 0; index < document.GetCount(); ++index) {
    const orlo::P<graphics::CGraphicElement> element = document.GetElement(index);
    if (!element->IsVisible()) continue;
    if (const auto* const mirror = orlo::tryCast<graphics::CGraphicMirror>(element)) {
      if (mirror->GetDocument()) Collect(*mirror->GetDocument(), depth + 1);
    } else if (const auto* const image = orlo::tryCast<graphics::animation::IAnimationElement>(element)) {
      if (image->HasAnimation()) sources_.push_back({image->GetAnimation()});
    }
  }
}

const wxObjectRefData* CShownFrames::ShownBy(const graphics::animation::IAnimation& animation) {
  const wxBitmap* const frame = animation.IsStarted() ? animation.GetCurrentFrame() : animation.GetFirstFrame();
  return frame ? frame->GetRefData() : nullptr;
}

}  // namespace authfilter
