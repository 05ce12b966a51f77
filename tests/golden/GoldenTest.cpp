#include "host/Base64.h"
#include "host/Instance.h"
#include "host/PageFile.h"
#include "tests/golden/Comparison.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <vector>

namespace {

namespace fs = std::filesystem;
using host::Picture;
using host::Size;

// What other processors round differently stays below; a shifted edge or letter does not.
constexpr int tolerance = 4;

constexpr Size pageSize{320, 180};
constexpr Size sampleSize{1280, 720};

// Light squares on a light slope, so that what is transparent shows as such.
Picture background(Size size) {
  Picture picture(size);
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      const int square = (x / 20 + y / 20) % 2 * 24;
      std::uint8_t* pixel = picture.row(y) + x * 4;
      pixel[0] = static_cast<std::uint8_t>(225 - square);
      pixel[1] = static_cast<std::uint8_t>(170 - square + 60 * x / size.width);
      pixel[2] = static_cast<std::uint8_t>(150 - square + 70 * y / size.height);
      pixel[3] = 255;
    }
  }
  return picture;
}

Picture draw(const fs::path& page, Size size) {
  const Picture input = background(size);
  host::Instance instance;
  EXPECT_TRUE(instance.set("width", std::to_string(size.width)));
  EXPECT_TRUE(instance.set("height", std::to_string(size.height)));
  EXPECT_TRUE(instance.set("plugindata", host::toBase64(host::readPage(page).xml))) << instance.lastError();
  instance.open();
  instance.nextFrame();
  instance.setInput(input.view());
  const host::Instance::Frame frame(instance, size);
  return test::copyOf(frame.view());
}

// With MFILTER_RENEW_GOLDEN set, the picture becomes the reference.
void expectGolden(const fs::path& page, Size size) {
  const std::string name = page.stem().string();
  const std::string reference = GOLDEN_REFERENCES "/" + name + ".png";
  const Picture output = draw(page, size);
  if (std::getenv("MFILTER_RENEW_GOLDEN")) {
    test::writePng(reference, output.view());
    GTEST_SKIP() << "written anew: " << reference;
  }

  ASSERT_TRUE(fs::exists(reference)) << "no reference; tests/golden/README.md tells how to make one";
  const Picture expected = test::readPng(reference);
  ASSERT_EQ(output.size(), expected.size());
  const test::Comparison result = test::compare(output.view(), expected.view(), tolerance);
  if (result.differingPixels == 0) return;

  fs::create_directories(GOLDEN_DIFFERENCES);
  const std::string prefix = GOLDEN_DIFFERENCES "/" + name;
  test::writePng(prefix + ".output.png", output.view());
  test::writePng(prefix + ".reference.png", expected.view());
  test::writePng(prefix + ".difference.png", result.difference.view());
  ADD_FAILURE() << result.differingPixels << " pixels differ by more than " << tolerance
                << ", the largest difference is " << result.largestDifference << "; see " << prefix << ".*.png";
}

std::vector<std::string> pages() {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(GOLDEN_PAGES)) names.push_back(entry.path().stem().string());
  std::sort(names.begin(), names.end());
  return names;
}

class Golden : public testing::TestWithParam<std::string> {};

TEST_P(Golden, LooksAsItDid) {
  expectGolden(fs::path(GOLDEN_PAGES) / (GetParam() + ".xml"), pageSize);
}

INSTANTIATE_TEST_SUITE_P(Page, Golden, testing::ValuesIn(pages()), [](const auto& testCase) {
  std::string name = testCase.param;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
});

TEST(GoldenSample, LooksAsItDid) {
  expectGolden(GOLDEN_SAMPLE, sampleSize);
}

}  // namespace
