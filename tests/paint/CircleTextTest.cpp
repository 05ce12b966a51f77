#include "graphics/geometry/Angles.h"
#include "tests/paint/Canvas.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace graphics::test {

namespace {

constexpr double kPi = std::numbers::pi;

class CircleText : public testing::Test {
protected:
  CircleText() : canvas_(200, 200) {
    canvas_.dc.SetFont(wxFont(wxFontInfo(9).FaceName("DejaVu Sans")));
    letter_ = canvas_.dc.GetTextExtent("M");
  }

  /// Letters that are needed for so many radians at a radius.
  int LettersFor(double radians, double radius) const {
    return static_cast<int>(std::ceil(radians * radius / (letter_.x * 1.1)));
  }

  CCanvas canvas_;
  wxSize letter_;
};

}  // namespace

TEST_F(CircleText, BelowTheSmallestRadiusNothingIsDrawnAndTheCircleIsFull) {
  canvas_.dc.SetCircleText(true);
  canvas_.dc.SetCircleCenter({100, 100});
  canvas_.dc.SetCircleRadius(14.9);
  canvas_.dc.DrawText("M", 0, 0);
  EXPECT_TRUE(canvas_.dc.IsCircleFull());
  EXPECT_EQ(canvas_.Ink().count, 0);
  EXPECT_EQ(canvas_.dc.GetCircleRadius(), 14.9);
}

TEST_F(CircleText, AtTheSmallestRadiusTheFirstLetterIsDrawn) {
  canvas_.dc.SetCircleText(true);
  canvas_.dc.SetCircleCenter({100, 100});
  canvas_.dc.SetCircleRadius(15.0);
  canvas_.dc.DrawText("M", 0, 0);
  EXPECT_FALSE(canvas_.dc.IsCircleFull());
  EXPECT_GT(canvas_.Ink().count, 0);
}

TEST_F(CircleText, ALetterAdvancesByItsWidthAndATenth) {
  const CCircleTextState state = canvas_.dc.DrawCircleTextFrom("M", {100, 100}, 50, 1.0, 0.25);
  EXPECT_NEAR(state.angle, 1.0 + letter_.x * 1.1 / 50, 1e-12);
  EXPECT_NEAR(state.offset, 0.25 + letter_.x * 1.1 / 50, 1e-12);
  EXPECT_EQ(state.radius, 50);
  EXPECT_FALSE(state.full);
}

TEST_F(CircleText, LettersStandOutsideTheirPlaceWithTheirFeetToTheCentre) {
  canvas_.dc.DrawCircleTextFrom("M", {100, 100}, 50, 0.0, 0.0);
  const wxRect ink = canvas_.Ink().bounds;
  EXPECT_LE(ink.GetRight(), 150);
  EXPECT_GE(ink.GetLeft(), 150 - letter_.y);
  EXPECT_GE(ink.GetTop(), 99);
}

TEST_F(CircleText, OneTextGoesOnWhereTheOtherEnded) {
  canvas_.dc.SetCircleText(true);
  canvas_.dc.SetCircleCenter({100.9, 100.9});
  canvas_.dc.SetCircleRadius(60);
  canvas_.dc.SetCircleAngle(0.5);
  canvas_.dc.DrawText("MM", 0, 0);
  canvas_.dc.DrawText("MM", 5, 5);
  CCanvas whole(200, 200);
  whole.dc.SetFont(canvas_.dc.GetFont());
  const CCircleTextState state = whole.dc.DrawCircleTextFrom("MMMM", {100, 100}, 60, 0.5, 0.0);
  EXPECT_NEAR(canvas_.dc.GetCircleAngle(), state.angle, 1e-12);
  EXPECT_EQ(canvas_.Ink().bounds, whole.Ink().bounds);
  EXPECT_EQ(canvas_.Ink().count, whole.Ink().count);
}

TEST_F(CircleText, EachTurnStartsOneLetterHeightFurtherIn) {
  const wxString turn('M', static_cast<std::size_t>(LettersFor(6.126105674500097, 80)));
  const CCircleTextState state = canvas_.dc.DrawCircleTextFrom(turn, {100, 100}, 80, 0.0, 0.0);
  EXPECT_EQ(state.radius, 80 - letter_.y);
  EXPECT_LT(state.offset, 0.2);
  EXPECT_FALSE(state.full);
}

TEST_F(CircleText, TheAngleGoesRoundAfterAFullTurn) {
  const CCircleTextState state = canvas_.dc.DrawCircleTextFrom("M", {100, 100}, 50, 2 * kPi - 0.01, 0.0);
  EXPECT_NEAR(state.angle, letter_.x * 1.1 / 50 - 0.01, 1e-12);
}

TEST_F(CircleText, ALetterHeightEqualToTheRadiusEndsTheDrawingWithTheRadiusUnchanged) {
  const double radius = std::max(15, letter_.y);
  canvas_.dc.SetFont(wxFont(wxFontInfo(12).FaceName("DejaVu Sans")));
  wxFont font = canvas_.dc.GetFont();
  while (canvas_.dc.GetTextExtent("M").y < 15) {
    font.SetPointSize(font.GetPointSize() + 1);
    canvas_.dc.SetFont(font);
  }
  const double height = canvas_.dc.GetTextExtent("M").y;
  const CCircleTextState state = canvas_.dc.DrawCircleTextFrom("MMMMMMMMMMMM", {100, 100}, height, 0.0, 6.1);
  EXPECT_TRUE(state.full);
  EXPECT_EQ(state.radius, height);
  EXPECT_GE(height, radius);
}

TEST_F(CircleText, TheCircleStateFollowsATextThatFillsIt) {
  canvas_.dc.SetCircleText(true);
  canvas_.dc.SetCircleCenter({100, 100});
  canvas_.dc.SetCircleRadius(20);
  canvas_.dc.DrawText(wxString('M', 100), 0, 0);
  ASSERT_TRUE(canvas_.dc.IsCircleFull());
  const double radius = canvas_.dc.GetCircleRadius();
  const int before = canvas_.Ink().count;
  canvas_.dc.DrawText("M", 0, 0);
  EXPECT_EQ(canvas_.Ink().count, before);
  const double offset = static_cast<CEffectDCImpl&>(*canvas_.dc.GetImpl()).effects.circle.offset;
  canvas_.dc.SetCircleText(true);
  EXPECT_FALSE(canvas_.dc.IsCircleFull());
  EXPECT_EQ(canvas_.dc.GetCircleRadius(), radius);
  EXPECT_EQ(static_cast<CEffectDCImpl&>(*canvas_.dc.GetImpl()).effects.circle.offset, offset);
}

TEST_F(CircleText, AnEmptyTextChangesNothing) {
  const CCircleTextState state = canvas_.dc.DrawCircleTextFrom("", {100, 100}, 50, 1.5, 0.25);
  EXPECT_EQ(state, (CCircleTextState{50, 1.5, 0.25, false}));
}

TEST_F(CircleText, AnUprightLetterOnACircleIsDrawnOnce) {
  canvas_.dc.SetCircleText(true);
  canvas_.dc.SetCircleCenter({100, 100});
  canvas_.dc.SetCircleRadius(60);
  const double top = DegToRad(270.0);
  ASSERT_EQ(270.0 - RadToDeg(top), 0.0);
  canvas_.dc.SetCircleAngle(top);
  canvas_.dc.DrawText("M", 0, 0);
  EXPECT_GT(canvas_.Ink().count, 0);
  EXPECT_NEAR(canvas_.dc.GetCircleAngle(), top + letter_.x * 1.1 / 60, 1e-12);
}

TEST_F(CircleText, DrawCircleTextLeavesTheCircleOfTheContextAlone) {
  canvas_.dc.SetCircleRadius(33);
  canvas_.dc.DrawCircleText("MM", {100, 100}, 60, 0.0);
  EXPECT_GT(canvas_.Ink().count, 0);
  EXPECT_EQ(canvas_.dc.GetCircleRadius(), 33);
  EXPECT_EQ(canvas_.dc.GetCircleAngle(), 0);
}

}  // namespace graphics::test
