#include "graphics/paint/ImagePainter.h"
#include "tests/paint/Canvas.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace graphics::test {

namespace {

std::string ToText(const wxRect& rect) {
  std::ostringstream out;
  out << rect.x << ',' << rect.y << ' ' << rect.width << 'x' << rect.height;
  return out.str();
}

/// Writes down what is drawn.
class CRecorder : public CImagePainter {
public:
  void DrawAt(const wxPoint& point, const wxBitmap& bitmap, const wxRect* source, bool useMask) override {
    Record("at " + std::to_string(point.x) + ',' + std::to_string(point.y), bitmap, source, useMask);
  }
  void DrawStretched(const wxRect& target, const wxBitmap& bitmap, const wxRect* source, bool useMask) override {
    Record("stretched " + ToText(target), bitmap, source, useMask);
  }

  std::vector<std::string> calls;
  std::vector<wxBitmap> bitmaps;

private:
  void Record(const std::string& what, const wxBitmap& bitmap, const wxRect* source, bool useMask) {
    calls.push_back(what + (source ? " of " + ToText(*source) : "") + (useMask ? " masked" : ""));
    bitmaps.push_back(bitmap);
  }
};

using CCalls = std::vector<std::string>;

/// Red, green, blue and white quarters.
wxBitmap Quarters(int width, int height) {
  wxBitmap bitmap = MakeAlphaBitmap(width, height);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      SetPixelOf(bitmap, x, y,
                 y < height / 2 ? (x < width / 2 ? kRed : CPixel{0, 255, 0, 255}) : (x < width / 2 ? kBlue : kWhite));
  return bitmap;
}

/// Every pixel differs, and so does its alpha.
wxBitmap Motley(int width, int height) {
  wxBitmap bitmap = MakeAlphaBitmap(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const int alpha = 255 - 7 * ((x + 3 * y) % 30);
      SetPixelOf(bitmap, x, y, {alpha * (x % 5) / 5, alpha * (y % 7) / 7, alpha * ((x + y) % 3) / 3, alpha});
    }
  }
  return bitmap;
}

class ImagePainter : public testing::Test {
protected:
  ImagePainter() : bitmap_(MakeAlphaBitmap(20, 16)) {}

  CToolkitLock lock_;
  wxBitmap bitmap_;
  CRecorder painter_;
};

}  // namespace

TEST_F(ImagePainter, NeitherTilesNorOverlapsByItself) {
  EXPECT_EQ(painter_.fillMode, 0);
  EXPECT_EQ(painter_.overlap, 0);
}

TEST_F(ImagePainter, WithoutMarginsDrawsAnEqualSizeOnceAndUnscaled) {
  painter_.PaintNinePart({3, 4, 20, 16}, bitmap_, {0, 0, 0, 0}, 1.0);
  EXPECT_EQ(painter_.calls, CCalls({"at 3,4 masked"}));
}

TEST_F(ImagePainter, WithoutMarginsStretchesToAnyOtherSizeOnce) {
  painter_.PaintNinePart({3, 4, 20, 17}, bitmap_, {0, 0, 0, 0}, 1.0);
  EXPECT_EQ(painter_.calls, CCalls({"stretched 3,4 20x17 masked"}));
}

TEST_F(ImagePainter, DrawsNinePartsInTheirOrder) {
  painter_.PaintNinePart({100, 200, 40, 30}, bitmap_, {2, 3, 4, 5}, 1.0);
  EXPECT_EQ(painter_.calls, CCalls({
                                "at 100,200 of 0,0 2x3",
                                "at 136,200 of 16,0 4x3",
                                "at 136,225 of 16,11 4x5",
                                "at 100,225 of 0,11 2x5",
                                "stretched 100,203 2x22 of 0,3 2x8",
                                "stretched 136,203 4x22 of 16,3 4x8",
                                "stretched 102,200 34x3 of 2,0 14x3",
                                "stretched 102,225 34x5 of 2,11 14x5",
                                "stretched 102,203 34x22 of 2,3 14x8",
                            }));
}

TEST_F(ImagePainter, DrawsNinePartsEvenAtTheBitmapsOwnSize) {
  painter_.PaintNinePart({0, 0, 20, 16}, bitmap_, {2, 2, 2, 2}, 1.0);
  EXPECT_EQ(painter_.calls.size(), 9U);
}

TEST_F(ImagePainter, PassesTheBitmapItselfOn) {
  painter_.PaintNinePart({0, 0, 40, 30}, bitmap_, {2, 2, 2, 2}, 1.0);
  for (const wxBitmap& bitmap : painter_.bitmaps) EXPECT_TRUE(bitmap.IsSameAs(bitmap_));
}

TEST_F(ImagePainter, SkipsTopBottomAndMiddleWhereSideMarginsTakeTheWholeWidth) {
  painter_.PaintNinePart({0, 0, 40, 30}, bitmap_, {12, 3, 8, 5}, 1.0);
  EXPECT_EQ(painter_.calls, CCalls({
                                "at 0,0 of 0,0 12x3",
                                "at 32,0 of 12,0 8x3",
                                "at 32,25 of 12,11 8x5",
                                "at 0,25 of 0,11 12x5",
                                "stretched 0,3 12x22 of 0,3 12x8",
                                "stretched 32,3 8x22 of 12,3 8x8",
                            }));
}

TEST_F(ImagePainter, LetsCornersOverlapInATargetNarrowerThanTheMargins) {
  painter_.PaintNinePart({0, 0, 5, 30}, bitmap_, {4, 3, 4, 5}, 1.0);
  EXPECT_EQ(painter_.calls, CCalls({
                                "at 0,0 of 0,0 4x3",
                                "at 1,0 of 16,0 4x3",
                                "at 1,25 of 16,11 4x5",
                                "at 0,25 of 0,11 4x5",
                                "stretched 0,3 4x22 of 0,3 4x8",
                                "stretched 1,3 4x22 of 16,3 4x8",
                            }));
}

TEST_F(ImagePainter, DropsPartsWithoutASourceWhereMarginsAreLargerThanTheBitmap) {
  painter_.PaintNinePart({0, 0, 90, 90}, bitmap_, {30, 3, 0, 0}, 1.0);
  // The corner reaches out of the bitmap; what draws it leaves it out.
  EXPECT_EQ(painter_.calls, CCalls({"at 0,0 of 0,0 30x3", "stretched 0,3 30x87 of 0,3 30x13"}));
  CCanvas canvas(90, 90);
  CSmoothEffectDC smooth(canvas.dc);
  const auto context = smooth.CreateEffectContext();
  CImagePainterContext(context.get()).PaintNinePart({0, 0, 90, 90}, Quarters(20, 16), {30, 3, 0, 0}, 1.0);
  EXPECT_EQ(canvas.Ink().count, 0);
}

TEST_F(ImagePainter, ReachesIntoTheNeighboursByTheOverlap) {
  painter_.overlap = 1;
  painter_.PaintNinePart({100, 200, 40, 30}, bitmap_, {2, 3, 4, 5}, 1.0);
  ASSERT_EQ(painter_.calls.size(), 9U);
  EXPECT_EQ(CCalls(painter_.calls.begin() + 4, painter_.calls.end()), CCalls({
                                                                          "stretched 100,202 2x24 of 0,3 2x8",
                                                                          "stretched 136,202 4x24 of 16,3 4x8",
                                                                          "stretched 101,200 36x3 of 2,0 14x3",
                                                                          "stretched 101,225 36x5 of 2,11 14x5",
                                                                          "stretched 101,202 36x24 of 2,3 14x8",
                                                                      }));
}

TEST_F(ImagePainter, TilesOnlyTheTopAndBottomEdges) {
  painter_.fillMode = 1;
  painter_.PaintNinePart({100, 200, 40, 30}, bitmap_, {2, 3, 4, 5}, 1.0);
  EXPECT_EQ(CCalls(painter_.calls.begin() + 4, painter_.calls.end()), CCalls({
                                                                          "stretched 100,203 2x22 of 0,3 2x8",
                                                                          "stretched 136,203 4x22 of 16,3 4x8",
                                                                          "at 102,200 of 0,0 14x3",
                                                                          "at 116,200 of 0,0 14x3",
                                                                          "at 130,200 of 0,0 6x3",
                                                                          "at 102,225 of 0,0 14x5",
                                                                          "at 116,225 of 0,0 14x5",
                                                                          "at 130,225 of 0,0 6x5",
                                                                          "stretched 102,203 34x22 of 2,3 14x8",
                                                                      }));
}

TEST_F(ImagePainter, LeavesTheTopAndBottomEdgesOutInAnUnknownFillMode) {
  painter_.fillMode = 2;
  painter_.PaintNinePart({0, 0, 40, 30}, bitmap_, {2, 3, 4, 5}, 1.0);
  EXPECT_EQ(painter_.calls.size(), 7U);
}

TEST_F(ImagePainter, TilesOneRowWhateverTheHeight) {
  painter_.DrawTiled({10, 20, 45, 100}, bitmap_, nullptr, true);
  EXPECT_EQ(painter_.calls, CCalls({"at 10,20 of 0,0 20x16", "at 30,20 of 0,0 20x16", "at 50,20 of 0,0 5x16"}));
  painter_.calls.clear();
  painter_.DrawTiled({0, 0, 20, 1}, bitmap_, nullptr, false);
  EXPECT_EQ(painter_.calls, CCalls({"at 0,0 of 0,0 20x16"}));
  painter_.calls.clear();
  painter_.DrawTiled({0, 0, 0, 10}, bitmap_, nullptr, false);
  EXPECT_EQ(painter_.calls, CCalls());
}

TEST_F(ImagePainter, TilesAPartOfTheBitmapWithItsAlpha) {
  const wxBitmap motley = Motley(20, 16);
  const wxRect part(3, 2, 6, 5);
  painter_.DrawTiled({0, 0, 12, 5}, motley, &part, false);
  ASSERT_EQ(painter_.calls, CCalls({"at 0,0 of 0,0 6x5", "at 6,0 of 0,0 6x5"}));
  EXPECT_EQ(painter_.bitmaps[0].GetSize(), wxSize(6, 5));
  for (int y = 0; y < 5; ++y)
    for (int x = 0; x < 6; ++x) EXPECT_EQ(PixelOf(painter_.bitmaps[0], x, y), PixelOf(motley, x + 3, y + 2));
}

TEST_F(ImagePainter, TilesNothingOfAPartThatIsEmptyOrReachesOut) {
  for (const wxRect& part : {wxRect(3, 2, 0, 5), wxRect(3, 2, 5, 0), wxRect(-1, 0, 5, 5), wxRect(16, 0, 5, 5)})
    painter_.DrawTiled({0, 0, 12, 5}, bitmap_, &part, false);
  EXPECT_EQ(painter_.calls, CCalls());
}

TEST_F(ImagePainter, TruncatesTargetAndMargins) {
  painter_.PaintInRect({-1.9, 2.9, 20.9, 16.9}, bitmap_, {.top = 0.9, .left = -0.9}, 7.0);
  EXPECT_EQ(painter_.calls, CCalls({"at -1,2 masked"}));
  painter_.calls.clear();
  painter_.PaintInRect({0, 0, 40, 30}, bitmap_, {.top = 3.9, .left = 2.9, .right = 4.9, .bottom = 5.9}, 0.0);
  EXPECT_EQ(painter_.calls.at(2), "at 36,25 of 16,11 4x5");
}

TEST_F(ImagePainter, LooksOnlyAtTheFixedMargins) {
  CMargins margins;
  margins.topFactor = margins.leftFactor = margins.rightFactor = margins.bottomFactor = 0.5;
  painter_.PaintInRect({0, 0, 20, 16}, bitmap_, margins, 1.0);
  EXPECT_EQ(painter_.calls, CCalls({"at 0,0 masked"}));
}

TEST_F(ImagePainter, TakesNumbersBeyondAnyPicture) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  CCanvas canvas;
  CSmoothEffectDC smooth(canvas.dc);
  const auto context = smooth.CreateEffectContext();
  CImagePainterContext painter(context.get());
  for (const double number : {1e300, -1e300, kInfinity, -kInfinity, std::numeric_limits<double>::quiet_NaN(), -5.0}) {
    painter.PaintInRect({number, number, number, number}, bitmap_, {}, 1.0);
    painter.PaintInRect({0, 0, 30, 30}, bitmap_, {.top = number, .left = number, .right = number, .bottom = number},
                        1.0);
    painter.PaintInRect({0, 0, number, 30}, bitmap_, {.top = 2, .left = number, .right = 2, .bottom = 2}, 1.0);
  }
  painter.PaintInRect({0, 0, 30, 30}, wxBitmap(), {.top = 2}, 1.0);
}

namespace {

class ImagePainterContext : public testing::Test {
protected:
  ImagePainterContext() : canvas_(60, 40), smooth_(canvas_.dc), context_(smooth_.CreateEffectContext()) {}

  CCanvas canvas_;
  CSmoothEffectDC smooth_;
  orlo::P<TEffectGraphicsContext> context_;
};

}  // namespace

TEST_F(ImagePainterContext, WithoutAContextDrawsNothing) {
  CImagePainterContext(nullptr).PaintInRect({0, 0, 40, 30}, Quarters(20, 16), {.top = 2, .left = 2}, 1.0);
  EXPECT_EQ(canvas_.Ink().count, 0);
}

TEST_F(ImagePainterContext, StretchesNinePartsWithoutBlurringAnything) {
  const wxBitmap bitmap = Motley(20, 16);
  CImagePainterContext(context_.get())
      .PaintInRect({5, 5, 50, 24}, bitmap, {.top = 3, .left = 2, .right = 4, .bottom = 5}, 1.0);
  // Corners at their natural size.
  for (int y = 0; y < 3; ++y)
    for (int x = 0; x < 2; ++x) EXPECT_EQ(canvas_.At(5 + x, 5 + y), PixelOf(bitmap, x, y));
  for (int y = 0; y < 5; ++y)
    for (int x = 0; x < 4; ++x) EXPECT_EQ(canvas_.At(51 + x, 24 + y), PixelOf(bitmap, 16 + x, 11 + y));
  // Everything between is some pixel of its own part.
  for (int x = 0; x < 44; ++x) EXPECT_EQ(canvas_.At(7 + x, 5), PixelOf(bitmap, 2 + (2 * x + 1) * 14 / 88, 0)) << x;
  for (int y = 0; y < 16; ++y) EXPECT_EQ(canvas_.At(5, 8 + y), PixelOf(bitmap, 0, 3 + (2 * y + 1) * 8 / 32)) << y;
  for (int y = 0; y < 16; ++y) {
    for (int x = 0; x < 44; ++x) {
      ASSERT_EQ(canvas_.At(7 + x, 8 + y), PixelOf(bitmap, 2 + (2 * x + 1) * 14 / 88, 3 + (2 * y + 1) * 8 / 32))
          << x << ' ' << y;
    }
  }
}

TEST_F(ImagePainterContext, DrawsAPartExactlyAsItsSubBitmap) {
  const wxBitmap motley = Motley(20, 16);
  wxImage photo(20, 16);
  for (int y = 0; y < 16; ++y)
    for (int x = 0; x < 20; ++x)
      photo.SetRGB(x, y, static_cast<unsigned char>(12 * x), static_cast<unsigned char>(15 * y), 90);
  const wxBitmap opaque(photo);
  photo.SetRGB(wxRect(5, 4, 3, 3), 255, 0, 255);
  photo.SetMaskColour(255, 0, 255);
  const wxBitmap masked(photo);
  const wxRect part(4, 3, 9, 8);
  for (const wxBitmap& bitmap : {motley, opaque, masked}) {
    for (const wxRect& target : {wxRect(2, 3, 9, 8), wxRect(2, 3, 50, 33), wxRect(2, 3, 5, 4)}) {
      CCanvas expected(60, 40), direct(60, 40);
      CSmoothEffectDC expectedDC(expected.dc), directDC(direct.dc);
      const auto expectedContext = expectedDC.CreateEffectContext(), directContext = directDC.CreateEffectContext();
      expectedContext->DrawBitmap(bitmap.GetSubBitmap(part), target.x, target.y, target.width, target.height);
      CImagePainterContext(directContext.get()).DrawStretched(target, bitmap, &part, false);
      ASSERT_GT(expected.Ink().count, 10);
      for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 60; ++x) ASSERT_EQ(direct.At(x, y), expected.At(x, y)) << x << ' ' << y;
    }
  }
}

TEST_F(ImagePainterContext, StretchesSmoothlyWithoutMargins) {
  CImagePainterContext(context_.get()).PaintInRect({0, 0, 60, 40}, Quarters(12, 8), {}, 1.0);
  EXPECT_EQ(canvas_.At(5, 5), kRed);
  EXPECT_EQ(canvas_.At(54, 34), kWhite);
  const CPixel between = canvas_.At(29, 5);
  EXPECT_GT(between.red, 0);
  EXPECT_GT(between.green, 0);
}

TEST_F(ImagePainterContext, ShowsThroughWhereTheBitmapDoes) {
  wxBitmap bitmap = MakeAlphaBitmap(6, 6);
  SetPixelOf(bitmap, 0, 0, {100, 0, 0, 128});
  CImagePainterContext(context_.get()).PaintInRect({10, 10, 20, 20}, bitmap, {.top = 1, .left = 1, .right = 1}, 1.0);
  EXPECT_EQ(canvas_.At(10, 10), (CPixel{100, 0, 0, 128}));
  EXPECT_EQ(canvas_.Ink().count, 1);
}

TEST_F(ImagePainterContext, DrawsWhiteInTheAlphaMask) {
  context_->alphaMask = true;
  wxBitmap bitmap = MakeAlphaBitmap(6, 6);
  SetPixelOf(bitmap, 0, 0, {100, 0, 0, 128});
  CImagePainterContext(context_.get()).PaintInRect({10, 10, 20, 20}, bitmap, {.top = 1, .left = 1, .right = 1}, 1.0);
  EXPECT_EQ(canvas_.At(10, 10), (CPixel{128, 128, 128, 128}));
  EXPECT_EQ(canvas_.Ink().count, 1);
}

TEST_F(ImagePainterContext, LeavesTheContextAsItWas) {
  const wxBitmap bitmap = Quarters(2, 1);
  context_->DrawBitmap(bitmap, 0, 0, 60, 1);
  const CPixel before = canvas_.At(29, 0);
  CImagePainterContext(context_.get()).PaintInRect({0, 2, 60, 5}, bitmap, {.left = 1}, 1.0);
  context_->DrawBitmap(bitmap, 0, 20, 60, 1);
  EXPECT_EQ(canvas_.At(29, 20), before);
}

TEST_F(ImagePainterContext, EnlargesEachPixelToASquareWhateverTheScale) {
  // Sharp within a pixel: far enlarged on both axes, on one of them, and beyond what is enlarged in two steps.
  const wxBitmap small = Quarters(2, 2), flat = Quarters(2, 20), large = Quarters(400, 400);
  const std::pair<const wxBitmap*, CDoubleRect> cases[] = {
      {&small, {-370, -380, 800, 800}}, {&flat, {-370, 0, 800, 40}}, {&large, {-69970, -69980, 140000, 140000}}};
  for (const auto& [bitmap, place] : cases) {
    CCanvas canvas(60, 40);
    CSmoothEffectDC smooth(canvas.dc);
    const auto target = smooth.CreateEffectContext();
    CImagePainterContext(target.get()).PaintInRect(place, *bitmap, {}, 1.0);
    smooth.Flush();
    EXPECT_EQ(canvas.At(3, 3), kRed);
    EXPECT_EQ(canvas.At(28, 18), kRed);
    EXPECT_EQ(canvas.At(32, 18), (CPixel{0, 255, 0, 255}));
    EXPECT_EQ(canvas.At(28, 22), kBlue);
    EXPECT_EQ(canvas.At(32, 22), kWhite);
    EXPECT_EQ(canvas.At(56, 36), kWhite);
  }
}

}  // namespace graphics::test
