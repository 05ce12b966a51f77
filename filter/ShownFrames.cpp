#include "filter/ShownFrames.h"

#include "authed/data/MovieAnimation.h"
#include "filter/SkinnedElement.h"
#include "foundation/Cast.h"
#include "graphics/elements/GraphicMirror.h"

#include <algorithm>

namespace authfilter {

bool CShownFrames::HaveChanged() const {
  return std::any_of(sources_.begin(), sources_.end(),
                     [](const CSource& source) { return ShownBy(*source.element) != source.painted; });
}

void CShownFrames::Remember() {
  for (CSource& source : sources_) source.painted = ShownBy(*source.element);
}

bool CShownFrames::AreNone() const {
  return std::none_of(sources_.begin(), sources_.end(),
                      [](const CSource& source) { return source.element->HasAnimation(); });
}

const wxObjectRefData* CShownFrames::GetLasting() const {
  if (sources_.size() != 1) return nullptr;
  const CShown shown = ShownBy(*sources_.front().element);
  return shown.lasts ? shown.frame : nullptr;
}

/// Mirrors that nest deeper than this are never painted.
void CShownFrames::Collect(const graphics::CGraphicDocument& document, int depth) {
  if (depth > graphics::kMaxMirrorDepth) return;
  for (std::size_t index = 0; index < document.GetCount(); ++index) {
    const orlo::P<graphics::CGraphicElement> element = document.GetElement(index);
    if (!element->IsVisible()) continue;
    if (const auto* const mirror = orlo::tryCast<graphics::CGraphicMirror>(element)) {
      if (mirror->GetDocument()) Collect(*mirror->GetDocument(), depth + 1);
    } else if (auto* const image = orlo::tryCast<graphics::animation::IAnimationElement>(element)) {
      if (ShowsAnimation(*element)) sources_.push_back({image, {}});
    }
  }
}

CShownFrames::CShown CShownFrames::ShownBy(const graphics::animation::IAnimationElement& element) {
  const orlo::P<graphics::animation::IAnimation> animation = element.GetAnimation();
  if (!animation) return {};
  if (const auto* const movie = dynamic_cast<const authed::data::CMovieAnimation*>(animation.get()))
    return {nullptr, movie->GetPictureNumber() + 1, false};
  const wxBitmap* const frame = animation->IsStarted() ? animation->GetCurrentFrame() : animation->GetFirstFrame();
  return {frame ? frame->GetRefData() : nullptr};
}

}  // namespace authfilter
