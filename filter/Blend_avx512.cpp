#include "filter/Blend.h"

#if defined(__x86_64__)

#include <immintrin.h>

namespace authfilter {

__attribute__((target("avx512bw"))) void blendPixelsAvx512(std::uint8_t* out, const std::uint8_t* below,
                                                           const std::uint8_t* above, std::size_t count) {
  constexpr __mmask16 kAllLanes = 0xFFFF;
  // Words of the transparencies of the lower and of the upper two pixels of each quarter register.
  const __m512i lowAlpha =
      _mm512_maskz_broadcast_i32x4(kAllLanes, _mm_setr_epi8(3, -1, 3, -1, 3, -1, 3, -1, 7, -1, 7, -1, 7, -1, 7, -1));
  const __m512i highAlpha = _mm512_maskz_broadcast_i32x4(
      kAllLanes, _mm_setr_epi8(11, -1, 11, -1, 11, -1, 11, -1, 15, -1, 15, -1, 15, -1, 15, -1));
  const __m512i half = _mm512_set1_epi16(128);
  const __m512i by255 = _mm512_set1_epi16(257);  // the upper word of x * 257 is (x + (x >> 8)) >> 8
  const __m512i zero = _mm512_setzero_si512();
  const __m512i ones = _mm512_set1_epi8(-1);

  for (std::size_t pixel = 0; pixel < count; pixel += 16) {
    const std::size_t rest = count - pixel;
    const __mmask16 mask = rest >= 16 ? kAllLanes : static_cast<__mmask16>((1u << rest) - 1u);
    const __m512i a = _mm512_maskz_loadu_epi32(mask, above + pixel * 4);
    const __m512i b = _mm512_maskz_loadu_epi32(mask, below + pixel * 4);
    const __m512i transparency = _mm512_xor_si512(a, ones);
    const __m512i low = _mm512_mullo_epi16(_mm512_unpacklo_epi8(b, zero), _mm512_shuffle_epi8(transparency, lowAlpha));
    const __m512i high =
        _mm512_mullo_epi16(_mm512_unpackhi_epi8(b, zero), _mm512_shuffle_epi8(transparency, highAlpha));
    const __m512i scaled = _mm512_packus_epi16(_mm512_mulhi_epu16(_mm512_add_epi16(low, half), by255),
                                               _mm512_mulhi_epu16(_mm512_add_epi16(high, half), by255));
    _mm512_mask_storeu_epi32(out + pixel * 4, mask, _mm512_adds_epu8(a, scaled));
  }
}

}  // namespace authfilter

#endif
