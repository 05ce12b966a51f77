#include "tests/golden/Comparison.h"

#include <gtest/gtest.h>

namespace {

using host::Picture;
using test::compare;

Picture grey(std::uint8_t value) {
  Picture picture({4, 3});
  for (std::uint8_t& byte : picture.bytes()) byte = value;
  return picture;
}

TEST(Comparison, FindsNothingInEqualPictures) {
  const auto result = compare(grey(50).view(), grey(50).view(), 0);
  EXPECT_EQ(result.largestDifference, 0);
  EXPECT_EQ(result.differingPixels, 0);
}

TEST(Comparison, CountsPixelsBeyondTheToleranceOnce) {
  const Picture a = grey(50);
  Picture b = grey(50);
  b.row(1)[4] = 55;
  b.row(1)[5] = 44;
  b.row(2)[8] = 53;
  const auto strict = compare(a.view(), b.view(), 2);
  EXPECT_EQ(strict.largestDifference, 6);
  EXPECT_EQ(strict.differingPixels, 2);
  EXPECT_EQ(compare(a.view(), b.view(), 3).differingPixels, 1);
  EXPECT_EQ(compare(a.view(), b.view(), 6).differingPixels, 0);
}

TEST(Comparison, PaintsTheDifferences) {
  const Picture a = grey(50);
  Picture b = grey(50);
  b.row(1)[4] = 55;
  b.row(2)[8] = 250;
  Picture difference = compare(a.view(), b.view(), 0).difference;
  EXPECT_EQ(difference.row(1)[4], 40);
  EXPECT_EQ(difference.row(2)[8], 255);
  EXPECT_EQ(difference.row(0)[0], 0);
  EXPECT_EQ(difference.row(0)[3], 255);
}

TEST(Comparison, SeesPicturesAsTheyWereWritten) {
  Picture picture({5, 2});
  for (std::size_t i = 0; i < picture.bytes().size(); ++i) {
    picture.bytes()[i] = static_cast<std::uint8_t>(i % 4 == 3 ? 255 : i * 6);
  }
  const std::string path = testing::TempDir() + "comparison.png";
  test::writePng(path, picture.view());
  EXPECT_EQ(test::readPng(path).bytes(), picture.bytes());
}

}  // namespace
