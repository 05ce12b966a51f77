#include "filter/Blend.h"

namespace authfilter {

void blendPixelsPlain(std::uint8_t* out, const std::uint8_t* below, const std::uint8_t* above, std::size_t count) {
  for (std::size_t pixel = 0; pixel < count; ++pixel, out += 4, below += 4, above += 4) {
    const unsigned transparency = 255u - above[3];
    for (int channel = 0; channel < 4; ++channel) {
      const unsigned product = below[channel] * transparency + 128u;
      const unsigned sum = above[channel] + ((product + (product >> 8)) >> 8);
      out[channel] = static_cast<std::uint8_t>(sum < 255u ? sum : 255u);
    }
  }
}

BlendPixels fastestBlendPixels() {
#if defined(__x86_64__)
  if (__builtin_cpu_supports("avx512bw")) return blendPixelsAvx512;
  if (__builtin_cpu_supports("avx2")) return blendPixelsAvx2;
#endif
  return blendPixelsPlain;
}

}  // namespace authfilter
