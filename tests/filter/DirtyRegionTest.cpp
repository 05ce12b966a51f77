#include "filter/DirtyRegion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace authfilter {
namespace {

TEST(DirtyRegion, OfNothingIsEmpty) {
  CDirtyRegion region;
  EXPECT_TRUE(region.IsEmpty());
  region.Add(wxRect(5, 5, 0, 10));
  EXPECT_TRUE(region.IsEmpty());
  EXPECT_FALSE(region.Touches(wxRect(0, 0, 100, 100)));
}

TEST(DirtyRegion, KeepsApartWhatLiesFarApart) {
  CDirtyRegion region(wxRect(0, 0, 10, 10));
  region.Add(wxRect(100, 100, 10, 10));
  EXPECT_EQ(region.GetRects().size(), 2u);
  EXPECT_TRUE(region.Touches(wxRect(105, 105, 1, 1)));
  EXPECT_FALSE(region.Touches(wxRect(10, 10, 90, 90)));
}

TEST(DirtyRegion, JoinsWhatOverlapsOrFitsTogether) {
  CDirtyRegion region(wxRect(0, 0, 10, 10));
  region.Add(wxRect(10, 0, 10, 10));
  ASSERT_EQ(region.GetRects().size(), 1u);
  EXPECT_EQ(region.GetRects()[0], wxRect(0, 0, 20, 10));
  region.Add(wxRect(15, 5, 30, 30));
  ASSERT_EQ(region.GetRects().size(), 1u);
  EXPECT_EQ(region.GetRects()[0], wxRect(0, 0, 45, 35));
}

TEST(DirtyRegion, JoinsWhatABridgeConnects) {
  CDirtyRegion region(wxRect(0, 0, 10, 10));
  region.Add(wxRect(40, 0, 10, 10));
  region.Add(wxRect(5, 2, 40, 3));
  ASSERT_EQ(region.GetRects().size(), 1u);
  EXPECT_EQ(region.GetRects()[0], wxRect(0, 0, 50, 10));
}

TEST(DirtyRegion, HoldsAllThatWasAddedInAFewRectanglesThatShareNoPixel) {
  std::mt19937 random(3);
  const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
  for (int round = 0; round < 200; ++round) {
    CDirtyRegion region;
    std::vector<wxRect> added;
    for (int index = below(60); index >= 0; --index) {
      added.emplace_back(below(1000), below(1000), 1 + below(round + 1), 1 + below(round + 1));
      region.Add(added.back());
    }
    const auto& rects = region.GetRects();
    EXPECT_LE(rects.size(), CDirtyRegion::kMostRects);
    for (std::size_t a = 0; a < rects.size(); ++a)
      for (std::size_t b = a + 1; b < rects.size(); ++b) EXPECT_FALSE(rects[a].Intersects(rects[b]));
    for (const wxRect& rect : added)
      EXPECT_TRUE(std::any_of(rects.begin(), rects.end(), [&](const wxRect& whole) { return whole.Contains(rect); }));
  }
}

}  // namespace
}  // namespace authfilter
