#pragma once

#include "foundation/Base.h"
#include "foundation/Pointer.h"
#include "graphics/animation/IAnimation.h"

namespace graphics::animation {

/// A page element that shows an animation.
class IAnimationElement : public virtual orlo::IBase {
public:
  virtual void StopAnimation() = 0;
  /// Plays from the first frame on.
  virtual void StartAnimation() = 0;
  virtual bool IsAnimationPlaying() const = 0;
  virtual bool HasAnimation() const = 0;
  /// Bit 2 of the element's flags.
  virtual bool IsElementActive() const = 0;
  virtual orlo::P<IAnimation> GetAnimation() const = 0;
};

}  // namespace graphics::animation
