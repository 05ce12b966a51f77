// Pages as the module draws them.

#include "host/Base64.h"
#include "host/Instance.h"
#include "host/PageFile.h"
#include "tests/golden/Comparison.h"
#include "tests/golden/Golden.h"

#include <gtest/gtest.h>

namespace {

using host::Picture;
using host::Size;

constexpr Size sampleSize{1280, 720};
// Photographs make large references.
constexpr Size photographSize{640, 360};

Picture draw(const std::string& page, Size size) {
  const Picture input = test::goldenBackground(size);
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

class Golden : public testing::TestWithParam<std::string> {};

TEST_P(Golden, LooksAsItDid) {
  test::expectGolden(GetParam(), draw(GOLDEN_PAGES "/" + GetParam() + ".xml", test::goldenSize).view());
}

INSTANTIATE_TEST_SUITE_P(Page, Golden, testing::ValuesIn(test::pagesOf(GOLDEN_PAGES)),
                         [](const auto& testCase) { return test::testNameOf(testCase.param); });

TEST(GoldenSample, FirstMenuLooksAsItDid) {
  test::expectGolden("first-menu", draw(GOLDEN_SAMPLES "/first-menu.xml", sampleSize).view());
}

TEST(GoldenSample, MainMenuLooksAsItDid) {
  test::expectGolden("main-menu", draw(GOLDEN_SAMPLES "/main-menu.xml", photographSize).view());
}

TEST(GoldenSample, AnimatedMenuLooksAsItDid) {
  test::expectGolden("animated-menu", draw(GOLDEN_SAMPLES "/animated-menu.xml", photographSize).view());
}

TEST(GoldenSample, ChapterMenuLooksAsItDid) {
  test::expectGolden("chapter-menu", draw(GOLDEN_SAMPLES "/chapter-menu.xml", photographSize).view());
}

}  // namespace
