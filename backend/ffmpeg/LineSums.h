#pragma once

#include <cstddef>
#include <cstdint>

namespace vantra::ffmpeg {

/// Adds lines of samples, at most 16: sums[x] is what stands in them at x, or at 2 x and behind it.
using CSumLines = void (*)(std::uint16_t* sums, const std::uint8_t* source, std::ptrdiff_t stride, int lines,
                           std::size_t count);

void SumLinesPlain(std::uint16_t* sums, const std::uint8_t* source, std::ptrdiff_t stride, int lines,
                   std::size_t count);
void SumPairsPlain(std::uint16_t* sums, const std::uint8_t* source, std::ptrdiff_t stride, int lines,
                   std::size_t count);

#if defined(__x86_64__)
void SumLinesAvx2(std::uint16_t* sums, const std::uint8_t* source, std::ptrdiff_t stride, int lines, std::size_t count);
void SumPairsAvx2(std::uint16_t* sums, const std::uint8_t* source, std::ptrdiff_t stride, int lines, std::size_t count);
#endif

/// The fastest variants that this processor runs.
CSumLines FastestSumLines();
CSumLines FastestSumPairs();

}  // namespace vantra::ffmpeg
