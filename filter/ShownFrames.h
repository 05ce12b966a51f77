#pragma once

#include "foundation/Pointer.h"
#include "graphics/animation/AnimationElement.h"
#include "graphics/model/GraphicDocument.h"

#include <cstdint>
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
  /// True if nothing can ever change.
  bool AreNone() const;
  /// What is shown, as a mark that other frames don't have: if it is all of one animation, and its frames last as long
  /// as the animation does. Null otherwise, as for movies, whose pictures all lie in one bitmap.
  const wxObjectRefData* GetLasting() const;

private:
  struct CShown {
    /// Bitmaps that share their memory show the same.
    const wxObjectRefData* frame = nullptr;
    /// Of a movie.
    std::uint64_t picture = 0;
    bool lasts = true;

    bool operator==(const CShown&) const = default;
  };
  /// An element's animation may be made anew.
  struct CSource {
    orlo::P<graphics::animation::IAnimationElement> element;
    CShown painted;
  };

  void Collect(const graphics::CGraphicDocument& document, int depth);
  static CShown ShownBy(const graphics::animation::IAnimationElement& element);

  std::vector<CSource> sources_;
};

}  // namespace authfilter
