#include "filter/Blend.h"

#include <cairo.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace authfilter {
namespace {

using CPixelsOf = std::vector<std::uint8_t>;

CPixelsOf randomPremultiplied(std::size_t count, std::uint32_t seed) {
  std::mt19937 random(seed);
  CPixelsOf pixels(count * 4);
  for (std::size_t pixel = 0; pixel < count; ++pixel) {
    // Every kind of alpha, the two ends often.
    const auto choice = random() % 4;
    const auto alpha = choice == 0 ? 0 : choice == 1 ? 255 : random() % 256;
    for (std::size_t channel = 0; channel < 3; ++channel)
      pixels[pixel * 4 + channel] = static_cast<std::uint8_t>(random() % (alpha + 1));
    pixels[pixel * 4 + 3] = static_cast<std::uint8_t>(alpha);
  }
  return pixels;
}

CPixelsOf cairoOver(CPixelsOf below, CPixelsOf above, int width, int height) {
  cairo_surface_t* page =
      cairo_image_surface_create_for_data(below.data(), CAIRO_FORMAT_ARGB32, width, height, width * 4);
  cairo_surface_t* layer =
      cairo_image_surface_create_for_data(above.data(), CAIRO_FORMAT_ARGB32, width, height, width * 4);
  cairo_t* context = cairo_create(page);
  cairo_set_source_surface(context, layer, 0, 0);
  cairo_paint(context);
  cairo_destroy(context);
  cairo_surface_destroy(layer);
  cairo_surface_flush(page);
  cairo_surface_destroy(page);
  return below;
}

struct CVariant {
  std::string name;
  BlendPixels blend;
};

std::vector<CVariant> variants() {
  std::vector<CVariant> result{{"plain", blendPixelsPlain}, {"fastest", fastestBlendPixels()}};
#if defined(__x86_64__)
  if (__builtin_cpu_supports("avx2")) result.push_back({"avx2", blendPixelsAvx2});
  if (__builtin_cpu_supports("avx512bw")) result.push_back({"avx512", blendPixelsAvx512});
#endif
  return result;
}

TEST(Blend, GivesThePixelsOfTheToolkitsOwnBlend) {
  constexpr int kWidth = 517;
  constexpr int kHeight = 211;
  const CPixelsOf below = randomPremultiplied(kWidth * kHeight, 1);
  const CPixelsOf above = randomPremultiplied(kWidth * kHeight, 2);
  const CPixelsOf expected = cairoOver(below, above, kWidth, kHeight);
  for (const CVariant& variant : variants()) {
    CPixelsOf out(below.size());
    variant.blend(out.data(), below.data(), above.data(), kWidth * kHeight);
    EXPECT_EQ(out, expected) << variant.name;
  }
}

TEST(Blend, GivesTheSameForEveryPairOfAlphaAndColour) {
  CPixelsOf below;
  CPixelsOf above;
  for (int alpha = 0; alpha < 256; ++alpha)
    for (int colour = 0; colour < 256; ++colour) {
      for (int channel = 0; channel < 4; ++channel) below.push_back(static_cast<std::uint8_t>(colour));
      for (int channel = 0; channel < 3; ++channel) above.push_back(static_cast<std::uint8_t>(alpha));
      above.push_back(static_cast<std::uint8_t>(alpha));
    }
  const CPixelsOf expected = cairoOver(below, above, 256, 256);
  for (const CVariant& variant : variants()) {
    CPixelsOf out(below.size());
    variant.blend(out.data(), below.data(), above.data(), 256 * 256);
    EXPECT_EQ(out, expected) << variant.name;
  }
}

TEST(Blend, WritesNoPixelMoreThanItWasAskedFor) {
  for (const CVariant& variant : variants())
    for (std::size_t count = 0; count < 40; ++count) {
      const CPixelsOf below = randomPremultiplied(40, 3);
      const CPixelsOf above = randomPremultiplied(40, 4);
      CPixelsOf out(40 * 4, 77);
      variant.blend(out.data(), below.data(), above.data(), count);
      EXPECT_TRUE(std::all_of(out.begin() + static_cast<std::ptrdiff_t>(count * 4), out.end(),
                              [](std::uint8_t byte) { return byte == 77; }))
          << variant.name << " " << count;
    }
}

TEST(Blend, MayWriteOverWhatLiesBelow) {
  const CPixelsOf below = randomPremultiplied(1000, 5);
  const CPixelsOf above = randomPremultiplied(1000, 6);
  for (const CVariant& variant : variants()) {
    CPixelsOf apart(below.size());
    variant.blend(apart.data(), below.data(), above.data(), 1000);
    CPixelsOf inPlace = below;
    variant.blend(inPlace.data(), inPlace.data(), above.data(), 1000);
    EXPECT_EQ(inPlace, apart) << variant.name;
  }
}

TEST(Blend, SaturatesColoursThatAreBrighterThanTheirAlphaAllows) {
  for (const CVariant& variant : variants()) {
    const CPixelsOf below(4 * 16, 200);
    const CPixelsOf above(4 * 16, 255);
    CPixelsOf bright = above;
    for (std::size_t alpha = 3; alpha < bright.size(); alpha += 4) bright[alpha] = 10;
    CPixelsOf out(below.size());
    variant.blend(out.data(), below.data(), bright.data(), 16);
    EXPECT_EQ(out[0], 255) << variant.name;
  }
}

}  // namespace
}  // namespace authfilter
