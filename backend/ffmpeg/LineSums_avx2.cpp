#include "backend/ffmpeg/LineSums.h"

#if defined(__x86_64__)

#include <immintrin.h>

namespace vantra::ffmpeg {

namespace {

[[gnu::target("avx2")]] inline __m256i Load(const std::uint8_t* bytes) {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(bytes));
}

[[gnu::target("avx2")]] inline void Store(std::uint16_t* words, __m256i value) {
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(words), value);
}

}  // namespace

[[gnu::target("avx2")]] void SumLinesAvx2(std::uint16_t* sums, const std::uint8_t* source, std::ptrdiff_t stride,
                                          int lines, std::size_t count) {
  std::size_t x = 0;
  for (; x + 32 <= count; x += 32) {
    __m256i left = _mm256_setzero_si256();
    __m256i right = left;
    const std::uint8_t* samples = source + x;
    for (int line = 0; line < lines; ++line, samples += stride) {
      const __m256i both = Load(samples);
      left = _mm256_add_epi16(left, _mm256_cvtepu8_epi16(_mm256_castsi256_si128(both)));
      right = _mm256_add_epi16(right, _mm256_cvtepu8_epi16(_mm256_extracti128_si256(both, 1)));
    }
    Store(sums + x, left);
    Store(sums + x + 16, right);
  }
  SumLinesPlain(sums + x, source + x, stride, lines, count - x);
}

[[gnu::target("avx2")]] void SumPairsAvx2(std::uint16_t* sums, const std::uint8_t* source, std::ptrdiff_t stride,
                                          int lines, std::size_t count) {
  const __m256i ones = _mm256_set1_epi8(1);
  std::size_t x = 0;
  for (; x + 32 <= count; x += 32) {
    __m256i left = _mm256_setzero_si256();
    __m256i right = left;
    const std::uint8_t* samples = source + 2 * x;
    for (int line = 0; line < lines; ++line, samples += stride) {
      left = _mm256_add_epi16(left, _mm256_maddubs_epi16(Load(samples), ones));
      right = _mm256_add_epi16(right, _mm256_maddubs_epi16(Load(samples + 32), ones));
    }
    Store(sums + x, left);
    Store(sums + x + 16, right);
  }
  SumPairsPlain(sums + x, source + 2 * x, stride, lines, count - x);
}

}  // namespace vantra::ffmpeg

#endif
