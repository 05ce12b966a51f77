#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

namespace graphics {

/// The whole part of a number as a 32-bit integer. Numbers out of range become the nearest integer, NaN becomes 0.
inline std::int32_t TruncateToInt(double value) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (std::isnan(value)) return 0;
  if (value <= static_cast<double>(Limits::min())) return Limits::min();
  if (value >= static_cast<double>(Limits::max())) return Limits::max();
  return static_cast<std::int32_t>(value);
}

/// As TruncateToInt, but rounds down: -0.5 gives -1.
inline std::int32_t FloorToInt(double value) {
  return TruncateToInt(std::floor(value));
}

}  // namespace graphics
