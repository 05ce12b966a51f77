#include "backend/ffmpeg/YuvPixels.h"

#include <algorithm>

namespace vantra::ffmpeg {

namespace {

constexpr int kShift = 16;

[[gnu::always_inline]] inline void Convert(std::uint32_t* __restrict target, const std::uint8_t* __restrict y,
                                           const std::uint8_t* __restrict u, const std::uint8_t* __restrict v,
                                           int width, const CYuvMatrix matrix) {
  const int base = (1 << (kShift - 1)) - matrix.black * matrix.luma;
  const auto toByte = [](int value) { return static_cast<std::uint32_t>(std::clamp(value >> kShift, 0, 255)); };
  for (int x = 0; x < width; ++x) {
    const int luma = y[x] * matrix.luma + base;
    const int blueness = u[x] - 128;
    const int redness = v[x] - 128;
    target[x] = 0xFF000000U | toByte(luma + redness * matrix.redOfV) << 16 |
                toByte(luma - blueness * matrix.greenOfU - redness * matrix.greenOfV) << 8 |
                toByte(luma + blueness * matrix.blueOfU);
  }
}

}  // namespace

/// The coefficients are those for the limited range of the colours.
CYuvMatrix::CYuvMatrix(const int* coefficients, bool isFullRange)
    : luma(isFullRange ? 1 << kShift : (255 << kShift) / 219), black(isFullRange ? 0 : 16) {
  const auto scaled = [&](int value) { return isFullRange ? (value * 224 + 127) / 255 : value; };
  redOfV = scaled(coefficients[0]);
  blueOfU = scaled(coefficients[1]);
  greenOfU = scaled(coefficients[2]);
  greenOfV = scaled(coefficients[3]);
}

void YuvToBgraPlain(std::uint32_t* target, const std::uint8_t* y, const std::uint8_t* u, const std::uint8_t* v,
                    int width, const CYuvMatrix& matrix) {
  Convert(target, y, u, v, width, matrix);
}

#if defined(__x86_64__)
[[gnu::target("avx2")]] void YuvToBgraAvx2(std::uint32_t* target, const std::uint8_t* y, const std::uint8_t* u,
                                           const std::uint8_t* v, int width, const CYuvMatrix& matrix) {
  Convert(target, y, u, v, width, matrix);
}
#endif

CYuvToBgra FastestYuvToBgra() {
#if defined(__x86_64__)
  if (__builtin_cpu_supports("avx2")) return YuvToBgraAvx2;
#endif
  return YuvToBgraPlain;
}

}  // namespace vantra::ffmpeg
