#pragma once

#include <cstdint>

namespace vantra::ffmpeg {

/// From YUV to RGB, in parts of 65536.
struct CYuvMatrix {
  /// From the numbers that FFmpeg has for a matrix: of the red of V, the blue of U, the green of U and of V.
  CYuvMatrix(const int* coefficients, bool isFullRange);

  int luma;
  int black;
  int redOfV;
  int blueOfU;
  int greenOfU;
  int greenOfV;
};

/// A line of opaque BGRA, each pixel with samples of its own.
using CYuvToBgra = void (*)(std::uint32_t* target, const std::uint8_t* y, const std::uint8_t* u, const std::uint8_t* v,
                            int width, const CYuvMatrix& matrix);

void YuvToBgraPlain(std::uint32_t* target, const std::uint8_t* y, const std::uint8_t* u, const std::uint8_t* v,
                    int width, const CYuvMatrix& matrix);
#if defined(__x86_64__)
/// The same loop, for the compiler to make what it can of it.
void YuvToBgraAvx2(std::uint32_t* target, const std::uint8_t* y, const std::uint8_t* u, const std::uint8_t* v,
                   int width, const CYuvMatrix& matrix);
#endif

/// The fastest variant that this processor runs.
CYuvToBgra FastestYuvToBgra();

}  // namespace vantra::ffmpeg
