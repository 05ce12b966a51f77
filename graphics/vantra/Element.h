#pragma once

#include "foundation/Base.h"

namespace graphics::vantra {

/// Marks page elements that show something of a movie.
class IElement : public virtual orlo::IBase {};

}  // namespace graphics::vantra
