#include "filter/Coverage.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace authfilter {
namespace {

/// A picture of one row, each pixel given by its alpha alone.
class CRowPicture {
public:
  explicit CRowPicture(const std::vector<std::uint8_t>& alphas) : bytes_(alphas.size() * 4) {
    for (std::size_t pixel = 0; pixel < alphas.size(); ++pixel) bytes_[pixel * 4 + 3] = alphas[pixel];
  }
  graphics::CPixels Pixels() {
    graphics::CPixels pixels;
    pixels.data = bytes_.data();
    pixels.stride = static_cast<std::int32_t>(bytes_.size());
    pixels.width = static_cast<std::int32_t>(bytes_.size() / 4);
    pixels.height = 1;
    return pixels;
  }

private:
  std::vector<std::uint8_t> bytes_;
};

std::vector<std::uint8_t> alphas(std::initializer_list<std::pair<int, int>> runs) {
  std::vector<std::uint8_t> result;
  for (const auto& [alpha, count] : runs)
    result.insert(result.end(), static_cast<std::size_t>(count), static_cast<std::uint8_t>(alpha));
  return result;
}

TEST(Coverage, OfATransparentPictureHasNoRuns) {
  CRowPicture picture(alphas({{0, 100}}));
  EXPECT_TRUE(CCoverage(picture.Pixels()).Row(0).empty());
}

TEST(Coverage, TellsLongOpaqueRunsFromTranslucentOnes) {
  CRowPicture picture(alphas({{0, 50}, {255, 1024}, {128, 40}, {0, 50}}));
  const CCoverage coverage(picture.Pixels());
  const auto runs = coverage.Row(0);
  ASSERT_EQ(runs.size(), 2u);
  EXPECT_EQ(runs[0].x, 50);
  EXPECT_EQ(runs[0].count, 1024);
  EXPECT_TRUE(runs[0].opaque);
  EXPECT_EQ(runs[1].x, 1074);
  EXPECT_EQ(runs[1].count, 40);
  EXPECT_FALSE(runs[1].opaque);
}

TEST(Coverage, BlendsShortOpaqueRuns) {
  CRowPicture picture(alphas({{255, 1023}, {0, 50}}));
  const CCoverage coverage(picture.Pixels());
  ASSERT_EQ(coverage.Row(0).size(), 1u);
  EXPECT_FALSE(coverage.Row(0)[0].opaque);
}

TEST(Coverage, JoinsShortRunsOverShortGaps) {
  CRowPicture picture(alphas({{255, 3}, {0, 3}, {128, 3}, {0, 60}, {255, 3}}));
  const CCoverage coverage(picture.Pixels());
  const auto runs = coverage.Row(0);
  ASSERT_EQ(runs.size(), 2u);
  EXPECT_EQ(runs[0].count, 9);
  EXPECT_FALSE(runs[0].opaque);
  EXPECT_EQ(runs[1].x, 69);
}

TEST(Coverage, GivesTheRunsOfAPartOfARow) {
  CRowPicture picture(alphas({{255, 20}, {0, 30}, {128, 50}, {0, 50}, {255, 50}}));
  const CCoverage coverage(picture.Pixels());
  ASSERT_EQ(coverage.Row(0).size(), 3u);
  EXPECT_EQ(coverage.Row(0, 0, 200).size(), 3u);
  EXPECT_EQ(coverage.Row(0, 19, 50).size(), 1u);
  EXPECT_EQ(coverage.Row(0, 20, 50).size(), 0u);
  EXPECT_EQ(coverage.Row(0, 20, 51).size(), 1u);
  EXPECT_EQ(coverage.Row(0, 99, 151).size(), 2u);
}

TEST(Coverage, IsCutToItsBounds) {
  CRowPicture picture(alphas({{0, 30}, {128, 50}, {0, 50}, {255, 50}, {0, 7}}));
  CCoverage coverage(picture.Pixels());
  const wxRect bounds = coverage.GetBounds();
  EXPECT_EQ(bounds, wxRect(30, 0, 150, 1));
  coverage.CutTo(bounds);
  ASSERT_EQ(coverage.Row(0).size(), 2u);
  EXPECT_EQ(coverage.Row(0)[0].x, 0);
  EXPECT_EQ(coverage.Row(0)[1].x, 100);
  EXPECT_EQ(coverage.GetBounds(), wxRect(0, 0, 150, 1));
}

TEST(Coverage, OfATransparentPictureIsCutToNothing) {
  CRowPicture picture(alphas({{0, 30}}));
  CCoverage coverage(picture.Pixels());
  EXPECT_TRUE(coverage.GetBounds().IsEmpty());
  coverage.CutTo(coverage.GetBounds());
  EXPECT_TRUE(coverage.GetBounds().IsEmpty());
}

TEST(Coverage, HoldsEveryPixelThatIsNotTransparentOnceAndCallsOnlyOpaqueOnesOpaque) {
  std::mt19937 random(7);
  for (int round = 0; round < 200; ++round) {
    std::vector<std::uint8_t> row;
    while (row.size() < 4000) {
      const auto kind = random() % 3;
      row.insert(row.end(), random() % (round % 2 ? 50 : 2000),
                 static_cast<std::uint8_t>(kind == 0   ? 0
                                           : kind == 1 ? 255
                                                       : 100));
    }
    CRowPicture picture(row);
    const CCoverage coverage(picture.Pixels());
    std::vector<int> held(row.size());
    std::int32_t end = 0;
    for (const CCoverage::CRun& run : coverage.Row(0)) {
      EXPECT_GE(run.x, end);
      end = run.x + run.count;
      for (std::int32_t x = run.x; x < end; ++x) {
        ++held[static_cast<std::size_t>(x)];
        if (run.opaque) {
          EXPECT_EQ(row[static_cast<std::size_t>(x)], 255);
        }
      }
    }
    EXPECT_LE(end, static_cast<std::int32_t>(row.size()));
    for (std::size_t x = 0; x < row.size(); ++x)
      if (row[x] != 0) {
        EXPECT_EQ(held[x], 1) << x;
      }
  }
}

}  // namespace
}  // namespace authfilter
