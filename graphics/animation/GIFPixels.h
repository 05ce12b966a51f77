#pragma once

#include "graphics/animation/GIFFile.h"

#include <cstdint>
#include <vector>

namespace graphics::animation {

/// The colour indices of a frame, row by row in the order of the file. Damaged or truncated data gives fewer than the
/// frame should have, never more.
std::vector<std::uint8_t> DecodeGIFPixels(const CGIFFrame& frame);

}  // namespace graphics::animation
