#include "filter/Blend.h"

#if defined(__x86_64__)

#include <immintrin.h>

namespace authfilter {

__attribute__((target("avx2"))) void blendPixelsAvx2(std::uint8_t* out, const std::uint8_t* below,
                                                     const std::uint8_t* above, std::size_t count) {
  // Words of the transparencies of the lower and of the upper two pixels of each half register.
  const __m256i lowAlpha =
      _mm256_broadcastsi128_si256(_mm_setr_epi8(3, -1, 3, -1, 3, -1, 3, -1, 7, -1, 7, -1, 7, -1, 7, -1));
  const __m256i highAlpha =
      _mm256_broadcastsi128_si256(_mm_setr_epi8(11, -1, 11, -1, 11, -1, 11, -1, 15, -1, 15, -1, 15, -1, 15, -1));
  const __m256i half = _mm256_set1_epi16(128);
  const __m256i by255 = _mm256_set1_epi16(257);  // the upper word of x * 257 is (x + (x >> 8)) >> 8
  const __m256i zero = _mm256_setzero_si256();
  const __m256i ones = _mm256_set1_epi8(-1);

  std::size_t pixel = 0;
  for (; pixel + 8 <= count; pixel += 8) {
    const __m256i a = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(above + pixel * 4));
    const __m256i b = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(below + pixel * 4));
    const __m256i transparency = _mm256_xor_si256(a, ones);
    const __m256i low = _mm256_mullo_epi16(_mm256_unpacklo_epi8(b, zero), _mm256_shuffle_epi8(transparency, lowAlpha));
    const __m256i high =
        _mm256_mullo_epi16(_mm256_unpackhi_epi8(b, zero), _mm256_shuffle_epi8(transparency, highAlpha));
    const __m256i scaled = _mm256_packus_epi16(_mm256_mulhi_epu16(_mm256_add_epi16(low, half), by255),
                                               _mm256_mulhi_epu16(_mm256_add_epi16(high, half), by255));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(out + pixel * 4), _mm256_adds_epu8(a, scaled));
  }
  blendPixelsPlain(out + pixel * 4, below + pixel * 4, above + pixel * 4, count - pixel);
}

}  // namespace authfilter

#endif
