#include "backend/ffmpeg/LineSums.h"

#include <algorithm>

namespace vantra::ffmpeg {

void SumLinesPlain(std::uint16_t* sums, const std::uint8_t* source, std::ptrdiff_t stride, int lines,
                   std::size_t count) {
  std::fill_n(sums, count, std::uint16_t{0});
  for (int line = 0; line < lines; ++line, source += stride)
    for (std::size_t x = 0; x < count; ++x) sums[x] = static_cast<std::uint16_t>(sums[x] + source[x]);
}

void SumPairsPlain(std::uint16_t* sums, const std::uint8_t* source, std::ptrdiff_t stride, int lines,
                   std::size_t count) {
  std::fill_n(sums, count, std::uint16_t{0});
  for (int line = 0; line < lines; ++line, source += stride)
    for (std::size_t x = 0; x < count; ++x)
      sums[x] = static_cast<std::uint16_t>(sums[x] + source[2 * x] + source[2 * x + 1]);
}

CSumLines FastestSumLines() {
#if defined(__x86_64__)
  if (__builtin_cpu_supports("avx2")) return SumLinesAvx2;
#endif
  return SumLinesPlain;
}

CSumLines FastestSumPairs() {
#if defined(__x86_64__)
  if (__builtin_cpu_supports("avx2")) return SumPairsAvx2;
#endif
  return SumPairsPlain;
}

}  // namespace vantra::ffmpeg
