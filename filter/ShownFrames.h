#pragma once

#include "foundation/Pointer.h"
#include "graphics/animation/IAnimation.h"
#include "graphics/model/GraphicDocument.h"

#include <vector>

namespace authfilter {

/// Which frames the animations in a document show, those behind its mirrors included, and which ones they showed when
/// it was painted. What counts is the frame and not the step: two elements may share one animation, and a step may lead
/// to the same picture again.
class CShownFrames {
public:
  explicit CShownFrames(const graphics::CGraphicDocument& document) { Collect(document, 0); }

  /// Takes no lock.
  bool HaveChanged() const;
  void Remember();
  bool AreNone() const { return sources_.empty(); }
  bool IsOne() const { return sources_.size() == 1; }
  /// What the first animation shows, as a mark that other frames don't have. There must be one.
  const wxObjectRefData* GetFirst() const { return ShownBy(*sources_.front().animation); }

private:
  struct CSource {
    orlo::P<graphics::animation::IAnimation> animation;
    /// Bitmaps that share their memory show the same.
    const wxObjectRefData* painted = nullptr;
  };

  void Collect(const graphics::CGraphicDocument& document, int depth);
  static const wxObjectRefData* ShownBy(const graphics::animation::IAnimation& animation);

  std::vector<CSource> sources_;
};

}  // namespace authfilter
