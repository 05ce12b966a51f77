#pragma once

#include "graphics/paint/EffectGraphicsContext.h"

#include <cmath>

namespace graphics {

/// Whole numbers of the context's units are edges of pixels, and a unit is one pixel.
inline bool LiesOnPixels(const TEffectGraphicsContext& context) {
  const auto isWhole = [](double number) { return number == std::round(number); };
  double a = 0, b = 0, c = 0, d = 0, tx = 0, ty = 0;
  context.GetTransform().Get(&a, &b, &c, &d, &tx, &ty);
  return a == 1 && b == 0 && c == 0 && d == 1 && isWhole(tx) && isWhole(ty);
}

}  // namespace graphics
