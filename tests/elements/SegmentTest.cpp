#include "graphics/elements/GraphicArrow.h"
#include "graphics/elements/GraphicDimension.h"
#include "graphics/elements/GraphicLine.h"
#include "graphics/elements/GraphicPoint.h"
#include "tests/elements/Page.h"

#include <gtest/gtest.h>

#include <limits>

namespace graphics::test {

TEST(Line, GoesFromStartToEndThroughThePagesMatrix) {
  CPage page;
  page.context.matrix = CMatrix::Scale(2, 2);
  CGraphicLine line;
  line.SetStart({2.9, 5.4});
  line.SetEnd({10.4, 5.4});
  line.SetPen(wxPen(*wxRED, 1));
  line.Paint(page.context);
  EXPECT_EQ(page.Ink().bounds, wxRect(5, 10, 15, 1));
  EXPECT_EQ(page.At(5, 10), kRed);
}

TEST(Line, IsBlackAndOnePixelWideUnlessToldOtherwise) {
  CPage page;
  CGraphicLine line;
  line.SetEnd({20, 0});
  line.Paint(page.context);
  EXPECT_EQ(page.At(10, 0), kBlack);
  EXPECT_EQ(page.Ink().bounds.height, 1);
}

TEST(Line, KeepsItsEndsInFiles) {
  const CToolkitLock lock;
  CGraphicLine line;
  line.SetStart({1.5, -2});
  line.SetEnd({30, 40.25});
  const auto copy = Reloaded(line);
  EXPECT_EQ(copy->GetStart(), CDoublePoint(1.5, -2));
  EXPECT_EQ(copy->GetEnd(), CDoublePoint(30, 40.25));
}

TEST(Line, IsClonedWithPenAndEnds) {
  const CToolkitLock lock;
  CGraphicLine line;
  line.SetStart({1, 2});
  line.SetEnd({3, 4});
  line.SetPen(wxPen(*wxRED, 7));
  line.SetName("name");
  const auto clone = line.Clone();
  const auto* const copy = orlo::tryCast<CGraphicLine>(clone);
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(copy->GetStart(), CDoublePoint(1, 2));
  EXPECT_EQ(copy->GetEnd(), CDoublePoint(3, 4));
  EXPECT_EQ(copy->GetPen().GetWidth(), 7);
  EXPECT_EQ(copy->GetName(), "name");
}

TEST(Line, EndsThatAreNoPlacesDrawNothingWorse) {
  CPage page;
  CGraphicLine line;
  line.SetStart({std::numeric_limits<double>::quiet_NaN(), -1e300});
  line.SetEnd({std::numeric_limits<double>::infinity(), 1e300});
  line.SetPen(wxPen(*wxBLACK, 1, wxPENSTYLE_DOT));
  line.Paint(page.context);
}

TEST(Arrow, EndsInAFilledHeadEightPixelsLongAndTenWide) {
  CPage page;
  CGraphicArrow arrow;
  arrow.SetStart({5, 20});
  arrow.SetEnd({45, 20});
  arrow.SetPen(wxPen(*wxRED, 1));
  arrow.Paint(page.context);
  EXPECT_EQ(page.At(5, 20), kRed);
  EXPECT_EQ(page.At(39, 20), kRed);
  EXPECT_EQ(page.At(37, 16), kRed);
  EXPECT_EQ(page.At(37, 24), kRed);
  EXPECT_EQ(page.At(36, 14), kClear);
  EXPECT_EQ(page.At(36, 26), kClear);
  EXPECT_EQ(page.At(35, 18), kClear);
  EXPECT_EQ(page.At(48, 20), kClear);
  EXPECT_EQ(page.At(44, 17), kClear);
}

TEST(Arrow, TheHeadKeepsItsSizeWhateverTheScale) {
  CPage page;
  page.context.matrix = CMatrix::Scale(10, 10);
  CGraphicArrow arrow;
  arrow.SetStart({0.5, 2});
  arrow.SetEnd({4.5, 2});
  arrow.Paint(page.context);
  const wxRect ink = page.Ink().bounds;
  EXPECT_NEAR(ink.height, 11, 2);
  EXPECT_EQ(ink.x, 5);
}

TEST(Arrow, PointsDownWhereItsLineDoes) {
  CPage page;
  CGraphicArrow arrow;
  arrow.SetStart({30, 2});
  arrow.SetEnd({30, 32});
  arrow.Paint(page.context);
  EXPECT_EQ(page.At(26, 24), kBlack);
  EXPECT_EQ(page.At(34, 24), kBlack);
  EXPECT_EQ(page.At(26, 30), kClear);
}

TEST(Arrow, OfNoLengthHasNoHead) {
  CPage page;
  CGraphicArrow arrow;
  arrow.SetStart({30, 20});
  arrow.SetEnd({30, 20});
  arrow.Paint(page.context);
  EXPECT_EQ(page.Ink().count, 0);
}

TEST(Dimension, HasTicksAcrossItsEnds) {
  CPage page;
  CGraphicDimension dimension;
  dimension.SetStart({10, 20});
  dimension.SetEnd({50, 20});
  dimension.Paint(page.context);
  EXPECT_EQ(page.Ink().bounds, wxRect(10, 18, 41, 5));
  for (const int x : {10, 50})
    for (int y = 18; y <= 22; ++y) EXPECT_EQ(page.At(x, y), kBlack);
  EXPECT_EQ(page.At(30, 20), kBlack);
  EXPECT_EQ(page.At(30, 19), kClear);
}

TEST(Dimension, TicksFollowTheScaleOfTheAxisAcrossTheLine) {
  CPage page;
  page.context.matrix = CMatrix::Scale(1, 4);
  CGraphicDimension dimension;
  dimension.SetStart({10, 5});
  dimension.SetEnd({50, 5});
  dimension.Paint(page.context);
  EXPECT_EQ(page.Ink().bounds, wxRect(10, 20 - 11, 41, 23));
  CPage upright;
  upright.context.matrix = CMatrix::Scale(1, 4);
  dimension.SetStart({30, 1});
  dimension.SetEnd({30, 9});
  dimension.Paint(upright.context);
  EXPECT_EQ(upright.Ink().bounds, wxRect(28, 4, 5, 33));
}

TEST(Point, PaintsNothing) {
  CPage page;
  CGraphicPoint point;
  Place(point, {5, 5, 20, 20});
  point.Paint(page.context);
  EXPECT_EQ(page.Ink().count, 0);
  EXPECT_EQ(point.Clone()->GetType(), GraphicType::kPoint);
}

}  // namespace graphics::test
