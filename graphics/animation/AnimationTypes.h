#pragma once

#include "graphics/animation/IAnimation.h"

namespace graphics::animation {

/// Appends a kind of animation to those that CreateAnimation knows. Done at start-up: nothing guards the list.
void RegisterAnimationType(const orlo::P<IAnimation>& prototype);

/// A new empty animation of the kind stored under that word, null if there is none.
orlo::P<IAnimation> CreateAnimation(const wxString& type);

}  // namespace graphics::animation
