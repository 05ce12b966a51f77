#pragma once

#include <cstddef>
#include <cstdint>

namespace authfilter {

/// Writes count pixels of above over below to out. Pixels are 32 bits, premultiplied, alpha in the last byte; out may
/// be below. Every variant gives the same bytes: above + below * (255 - alpha) / 255, each product rounded to nearest
/// and the sum saturated, which is what cairo's OVER gives.
using BlendPixels = void (*)(std::uint8_t* out, const std::uint8_t* below, const std::uint8_t* above,
                             std::size_t count);

void blendPixelsPlain(std::uint8_t* out, const std::uint8_t* below, const std::uint8_t* above, std::size_t count);

#if defined(__x86_64__)
void blendPixelsAvx2(std::uint8_t* out, const std::uint8_t* below, const std::uint8_t* above, std::size_t count);
void blendPixelsAvx512(std::uint8_t* out, const std::uint8_t* below, const std::uint8_t* above, std::size_t count);
#endif

/// The fastest variant that this processor runs.
BlendPixels fastestBlendPixels();

}  // namespace authfilter
