#include "backend/ffmpeg/LineSums.h"
#include "backend/ffmpeg/Shrinker.h"
#include "backend/ffmpeg/YuvPixels.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <random>
#include <vector>

using namespace vantra::ffmpeg;

namespace {

std::vector<std::uint8_t> RandomBytes(std::size_t count) {
  std::mt19937 random(7);
  std::vector<std::uint8_t> bytes(count);
  for (auto& byte : bytes) byte = random() % 4 == 0 ? 255 : static_cast<std::uint8_t>(random());
  return bytes;
}

CHandle<AVFrame> FrameOf(AVPixelFormat format, int width, int height) {
  auto frame = Held(av_frame_alloc());
  frame->format = format;
  frame->width = width;
  frame->height = height;
  EXPECT_GE(av_frame_get_buffer(frame.get(), 0), 0);
  return frame;
}

}  // namespace

TEST(Shrink, AddsLinesTheSameWayInEachVariant) {
  constexpr std::ptrdiff_t kStride = 300;
  const std::vector<std::uint8_t> source = RandomBytes(kStride * 16);
  for (const int lines : {1, 2, 3, 6, 16}) {
    for (const std::size_t count : {1, 31, 32, 33, 64, 150}) {
      std::vector<std::uint16_t> plain(count);
      std::vector<std::uint16_t> fastest(count);
      SumLinesPlain(plain.data(), source.data(), kStride, lines, count);
      FastestSumLines()(fastest.data(), source.data(), kStride, lines, count);
      EXPECT_EQ(plain, fastest);
      SumPairsPlain(plain.data(), source.data(), kStride, lines, count);
      FastestSumPairs()(fastest.data(), source.data(), kStride, lines, count);
      EXPECT_EQ(plain, fastest);
    }
  }
}

TEST(Shrink, GivesTheAverageOfEachBlock) {
  for (int block = 2; block <= 16; ++block) {
    const int width = block * 20;
    const auto frame = FrameOf(AV_PIX_FMT_YUV444P, width, block * 2);
    const std::vector<std::uint8_t> bytes = RandomBytes(static_cast<std::size_t>(width) * 2 * block);
    for (int plane = 0; plane < 3; ++plane)
      for (int y = 0; y < block * 2; ++y)
        for (int x = 0; x < width; ++x) frame->data[plane][y * frame->linesize[plane] + x] = bytes[y * width + x];
    CShrinker shrinker;
    const AVFrame& small = shrinker.Shrink(*frame, 20, 2);
    ASSERT_EQ(small.width, 20);
    ASSERT_EQ(small.height, 2);
    for (int column = 0; column < 40; ++column) {
      int sum = 0;
      for (int sample = 0; sample < block * block; ++sample)
        sum += bytes[(column / 20 * block + sample / block) * width + column % 20 * block + sample % block];
      for (int plane = 0; plane < 3; ++plane)
        ASSERT_EQ(small.data[plane][column / 20 * small.linesize[plane] + column % 20],
                  (sum + block * block / 2) / (block * block))
            << block;
    }
  }
}

TEST(YuvPixels, AreWhatTheirMatrixAndRangeMakeOfThem) {
  for (const int standard : {SWS_CS_ITU709, SWS_CS_ITU601, SWS_CS_BT2020}) {
    for (const bool isFull : {false, true}) {
      // What red and blue weigh in the luma.
      const double red = standard == SWS_CS_ITU709 ? 0.2126 : standard == SWS_CS_ITU601 ? 0.299 : 0.2627;
      const double blue = standard == SWS_CS_ITU709 ? 0.0722 : standard == SWS_CS_ITU601 ? 0.114 : 0.0593;
      const CYuvMatrix matrix(sws_getCoefficients(standard), isFull);
      const std::vector<std::uint8_t> bytes = RandomBytes(3000);
      std::vector<std::uint32_t> plain(1000);
      std::vector<std::uint32_t> fastest(1000);
      YuvToBgraPlain(plain.data(), bytes.data(), bytes.data() + 1000, bytes.data() + 2000, 1000, matrix);
      FastestYuvToBgra()(fastest.data(), bytes.data(), bytes.data() + 1000, bytes.data() + 2000, 1000, matrix);
      EXPECT_EQ(plain, fastest);
      for (std::size_t pixel = 0; pixel < 1000; ++pixel) {
        const double y = isFull ? bytes[pixel] : (bytes[pixel] - 16) * 255 / 219.0;
        const double u = (bytes[1000 + pixel] - 128) * (isFull ? 1 : 255 / 224.0);
        const double v = (bytes[2000 + pixel] - 128) * (isFull ? 1 : 255 / 224.0);
        const double r = y + v * 2 * (1 - red);
        const double b = y + u * 2 * (1 - blue);
        const double g = (y - red * r - blue * b) / (1 - red - blue);
        const std::array<double, 4> expected = {b, g, r, 255};
        for (std::size_t channel = 0; channel < 4; ++channel)
          ASSERT_NEAR(plain[pixel] >> (8 * channel) & 255U, std::clamp(expected[channel], 0.0, 255.0), 1.1)
              << pixel << ' ' << channel;
      }
    }
  }
}
