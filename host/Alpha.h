#pragma once

#include "host/Picture.h"

#include <cstddef>
#include <cstdint>

namespace host {

// Straight colours to premultiplied ones, in place, rounded to the nearest.
void premultiply(std::uint8_t* bgra, std::size_t pixels);

// Lowers colours that lie above their alpha, as scaling can leave them.
void limitToAlpha(std::uint8_t* bgra, std::size_t pixels);

bool isOpaque(const PictureView& picture);

// One row of premultiplied BGRA to straight RGBA.
void toStraightRgba(const std::uint8_t* bgra, std::uint8_t* rgba, int pixels);

}  // namespace host
