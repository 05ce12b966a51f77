#include "authed/data/Thumbnail.h"
#include "foundation/Error.h"
#include "tests/skin/Sources.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace authed::data {

namespace {

using namespace graphics;
using namespace graphics::test;
using skin::Filled;

class Thumbnail : public testing::Test {
protected:
  Thumbnail() : page_(60, 40) { StartForTests(); }

  void Paint(const CDoubleRect& rect, const wxBitmap& bitmap, EScaleMode mode) {
    PaintThumbnail(*page_.target, rect, bitmap, mode);
    page_.smooth.Flush();
  }
  /// Whether the pixels of a rectangle, and no others, have the colour.
  bool Covers(const wxRect& rect, CPixel colour) const {
    for (int y = 0; y < 40; ++y)
      for (int x = 0; x < 60; ++x)
        if ((page_.At(x, y) == colour) != rect.Contains(x, y)) return false;
    return true;
  }

  const CToolkitLock lock_;
  skin::CLayerPage page_;
};

/// Each column in a colour of its own.
wxBitmap Columns(int width, int height) {
  wxBitmap bitmap = MakeAlphaBitmap(width, height);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) SetPixelOf(bitmap, x, y, {10 + 10 * x, 10 * y, 0, 255});
  return bitmap;
}

TEST_F(Thumbnail, FitsBetweenBarsAtTheSides) {
  Paint({2, 3, 12, 6}, Filled(4, 3, kRed), EScaleMode::width);
  EXPECT_TRUE(Covers({4, 3, 8, 6}, kRed));
  EXPECT_EQ(page_.At(2, 3), kBlack);
  EXPECT_EQ(page_.At(13, 8), kBlack);
  EXPECT_EQ(page_.Ink().bounds, wxRect(2, 3, 12, 6));
  EXPECT_EQ(page_.Ink().count, 72);
}

TEST_F(Thumbnail, FitsBetweenBarsAboveAndBelow) {
  Paint({2, 3, 8, 12}, Filled(4, 3, kRed), EScaleMode::width);
  EXPECT_TRUE(Covers({2, 6, 8, 6}, kRed));
  EXPECT_EQ(page_.At(2, 3), kBlack);
  EXPECT_EQ(page_.At(9, 14), kBlack);
  EXPECT_EQ(page_.Ink().bounds, wxRect(2, 3, 8, 12));
}

TEST_F(Thumbnail, FillsTheHeightBetweenBars) {
  Paint({2, 3, 12, 6}, Filled(4, 3, kRed), EScaleMode::height);
  EXPECT_TRUE(Covers({4, 3, 8, 6}, kRed));
  EXPECT_EQ(page_.Ink().bounds, wxRect(2, 3, 12, 6));
}

TEST_F(Thumbnail, FillsTheHeightAndGoesBeyondTheSides) {
  Paint({10, 3, 4, 6}, Filled(4, 3, kRed), EScaleMode::height);
  EXPECT_TRUE(Covers({8, 3, 8, 6}, kRed));
}

TEST_F(Thumbnail, FillsTheBoxAndLosesAsMuchOnBothSides) {
  // 16 x 9 in 4 x 3 is scaled by a third, and has 4 columns too many.
  Paint({5, 5, 4, 3}, Filled(16, 9, kRed), EScaleMode::fitting);
  EXPECT_TRUE(Covers({5, 5, 4, 3}, kRed));

  // In its own scale each column can be told.
  Paint({20, 10, 12, 9}, Columns(16, 9), EScaleMode::fitting);
  for (int x = 0; x < 12; ++x)
    for (int y = 0; y < 9; ++y) EXPECT_EQ(page_.At(20 + x, 10 + y), (CPixel{30 + 10 * x, 10 * y, 0, 255})) << x << y;
  EXPECT_EQ(page_.At(19, 10), kClear);
  EXPECT_EQ(page_.At(32, 10), kClear);
}

TEST_F(Thumbnail, FillsTheBoxAndLosesAsMuchAboveAndBelow) {
  Paint({20, 10, 8, 2}, Columns(8, 6), EScaleMode::fitting);
  for (int x = 0; x < 8; ++x)
    for (int y = 0; y < 2; ++y) EXPECT_EQ(page_.At(20 + x, 10 + y), (CPixel{10 + 10 * x, 20 + 10 * y, 0, 255}));
  EXPECT_EQ(page_.Ink().bounds, wxRect(20, 10, 8, 2));
}

TEST_F(Thumbnail, LosesNothingWhereItsShapeIsTheBoxs) {
  for (const EScaleMode mode : {EScaleMode::width, EScaleMode::height, EScaleMode::fitting}) {
    Paint({7, 6, 16, 9}, Columns(16, 9), mode);
    for (int x = 0; x < 16; ++x) EXPECT_EQ(page_.At(7 + x, 6), (CPixel{10 + 10 * x, 0, 0, 255}));
    EXPECT_EQ(page_.Ink().bounds, wxRect(7, 6, 16, 9));
  }
}

TEST_F(Thumbnail, LiesOnWholePixelsIfItIsAsLargeAsItsPlace) {
  // As a backend makes it for this box: 16 x 9 and no more.
  Paint({10.25, 5.5, 16.3, 9.8}, Columns(16, 9), EScaleMode::fitting);
  for (int x = 0; x < 16; ++x)
    for (int y = 0; y < 9; ++y) EXPECT_EQ(page_.At(10 + x, 6 + y), (CPixel{10 + 10 * x, 10 * y, 0, 255})) << x << y;
}

TEST_F(Thumbnail, ShowsWhatLiesBelowThroughItsOwnTransparency) {
  Paint({0, 0, 4, 4}, MakeAlphaBitmap(4, 4), EScaleMode::fitting);
  EXPECT_EQ(page_.Ink().count, 0);
  Paint({0, 0, 4, 4}, MakeAlphaBitmap(4, 4), EScaleMode::width);
  EXPECT_TRUE(Covers({0, 0, 4, 4}, kBlack));
}

TEST_F(Thumbnail, IsNothingInAModeThatIsNone) {
  for (const int mode : {3, -1, 7}) Paint({0, 0, 10, 10}, Filled(4, 4, kRed), static_cast<EScaleMode>(mode));
  EXPECT_EQ(page_.Ink().count, 0);
}

TEST_F(Thumbnail, IsNothingWithoutAPictureOrAPlace) {
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  for (const EScaleMode mode : {EScaleMode::width, EScaleMode::height, EScaleMode::fitting}) {
    Paint({0, 0, 10, 10}, wxBitmap(), mode);
    for (const double bad : {0.0, -4.0, kNan}) {
      Paint({0, 0, bad, 10}, Filled(4, 4, kRed), mode);
      Paint({0, 0, 10, bad}, Filled(4, 4, kRed), mode);
    }
  }
  EXPECT_EQ(page_.Ink().count, 0);
  for (const EScaleMode mode : {EScaleMode::width, EScaleMode::height, EScaleMode::fitting})
    for (const double far : {kInfinity, 1e300, 1e12, 1e-300}) {
      Paint({0, 0, far, 10}, Filled(4, 4, kRed), mode);
      Paint({0, 0, 10, far}, Filled(4, 4, kRed), mode);
      Paint({far, -far, 10, 10}, Filled(4, 4, kRed), mode);
    }
  // The surface has stood all of it, and still takes paint.
  Paint({50, 30, 4, 4}, Filled(4, 4, kBlue), EScaleMode::fitting);
  EXPECT_EQ(page_.At(51, 31), kBlue);
}

TEST(ScaleMode, HasAWord) {
  for (const auto& [mode, word] : {std::pair(EScaleMode::width, "scale-width"),
                                   {EScaleMode::height, "scale-height"},
                                   {EScaleMode::fitting, "scale-fitting"}}) {
    EXPECT_EQ(WordOf(mode), word);
    EXPECT_EQ(ScaleModeOf(word), mode);
  }
  EXPECT_EQ(WordOf(static_cast<EScaleMode>(3)), "unknown");
  EXPECT_EQ(WordOf(static_cast<EScaleMode>(-1)), "unknown");
  for (const char* const word : {"unknown", "Scale-Width", "scale-width ", "", "0"})
    EXPECT_THROW(ScaleModeOf(word), orlo::CException) << word;
}

}  // namespace

}  // namespace authed::data
