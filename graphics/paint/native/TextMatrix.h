#pragma once

#include <cairo.h>

#include <cmath>

namespace graphics {

/// Lines of text lie along rows of pixels, or along columns, as near as a turn by degrees can tell.
inline bool IsUpright(const cairo_matrix_t& matrix) {
  return std::abs(matrix.yx) + std::abs(matrix.xy) < 1e-9;
}

inline bool IsTurned(const cairo_matrix_t& matrix) {
  return std::abs(matrix.xx) + std::abs(matrix.yy) < 1e-9;
}

}  // namespace graphics
