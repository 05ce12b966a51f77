#pragma once

#include "graphics/geometry/DoubleSize.h"

#include <optional>
#include <span>

namespace graphics {

/// The size in pixels that the header of a PNG, JPEG, BMP or GIF picture claims; nothing for any other content.
std::optional<CDoubleSize> FindPictureSize(std::span<const unsigned char> bytes);

}  // namespace graphics
