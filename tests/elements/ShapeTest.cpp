#include "foundation/Cast.h"
#include "foundation/wxutil/WXError.h"
#include "graphics/elements/BuiltInFreeForms.h"
#include "graphics/elements/FreeFormManager.h"
#include "graphics/elements/GraphicCircle.h"
#include "graphics/elements/GraphicPoint.h"
#include "graphics/elements/GraphicRectangle.h"
#include "graphics/elements/GraphicShape.h"
#include "graphics/elements/ShapePainter.h"
#include "graphics/geometry/GreyColour.h"
#include "tests/elements/Page.h"

#include <gtest/gtest.h>

#include <limits>

namespace graphics::test {

namespace {

orlo::P<CFreeForm> FormOf(std::initializer_list<CDoublePoint> points) {
  const auto document = orlo::makeObject<CGraphicDocument>();
  for (const CDoublePoint& place : points) {
    const auto point = orlo::makeObject<CGraphicPoint>();
    point->SetCenter(place);
    document->Add(point);
  }
  return orlo::makeObject<CFreeForm>("freeform.own", document);
}

class Shape : public testing::Test {
protected:
  Shape() {
    shape_.SetBrush(*wxBLUE_BRUSH);
    shape_.SetPen(*wxTRANSPARENT_PEN);
  }

  void Paint(CDoubleRect frame) {
    Place(shape_, frame);
    shape_.Paint(page_.context);
  }

  CPage page_;
  CGraphicShape shape_;
};

}  // namespace

TEST_F(Shape, IsAnUnfilledRectangleWithABlackOutlineAtFirst) {
  const CGraphicShape shape;
  EXPECT_EQ(shape.GetShapeType(), ShapeType::kRectangle);
  EXPECT_EQ(shape.GetPen(), *wxBLACK_PEN);
  EXPECT_EQ(shape.GetBrush(), *wxTRANSPARENT_BRUSH);
  EXPECT_FALSE(shape.GetGradient().ok);
  EXPECT_EQ(shape.GetLineWidth(), 0.0);
  EXPECT_EQ(shape.GetCornerRadius(), 5.0);
  EXPECT_FALSE(shape.GetFreeForm());
}

TEST_F(Shape, FillsTheWholePixelsNearestToItsFrame) {
  Paint({5.4, 6.6, 10, 8});
  EXPECT_EQ(page_.Ink().bounds, wxRect(5, 7, 10, 8));
  EXPECT_EQ(page_.Ink().count, 80);
  EXPECT_EQ(page_.At(14, 14), kBlue);
}

TEST_F(Shape, GoesThroughThePagesMatrix) {
  page_.context.matrix = CMatrix::Scale(2, 3) * CMatrix::Translation(1, 2);
  Paint({2, 2, 5, 4});
  EXPECT_EQ(page_.Ink().bounds, wxRect(5, 8, 10, 12));
}

TEST_F(Shape, HasAnOutlineThatIsTheSameOnAllSides) {
  for (const int rotation : {0, 90, 180, 270}) {
    for (const bool mirrored : {false, true}) {
      CPage page;
      shape_.SetPen(wxPen(*wxRED, 1));
      shape_.SetRotation(rotation);
      shape_.SetMirror(0, mirrored);
      Place(shape_, {10, 5, 20, 20});
      shape_.Paint(page.context);
      EXPECT_EQ(page.Ink().bounds, wxRect(10, 5, 20, 20)) << rotation;
      EXPECT_EQ(page.Ink().count, 400) << rotation;
      for (const wxPoint pixel : {wxPoint(10, 5), {29, 5}, {29, 24}, {10, 24}, {20, 5}, {10, 15}, {29, 15}, {20, 24}})
        EXPECT_EQ(page.At(pixel.x, pixel.y), kRed) << rotation << ' ' << pixel.x << ' ' << pixel.y;
      EXPECT_EQ(page.At(11, 6), kBlue);
      EXPECT_EQ(page.At(28, 23), kBlue);
    }
  }
}

TEST_F(Shape, OutlinesRunThroughTheMiddleOfPixelsIfTheyAreOdd) {
  EXPECT_EQ(FrameOfOutline({10.2, 5.4, 20, 10}, 0, false), (CDoubleRect{10, 5, 20, 10}));
  EXPECT_EQ(FrameOfOutline({10.2, 5.4, 20, 10}, 0, true), (CDoubleRect{10.5, 5.5, 19, 9}));
  // On its side it covers (15, 1) to (26, 21) of the device.
  EXPECT_EQ(FrameOfOutline({10, 5, 20, 11}, 90, false), (CDoubleRect{10.5, 5.5, 20, 11}));
  EXPECT_EQ(FrameOfOutline({10.2, 5.4, 20, 10}, 30, false), (CDoubleRect{10.2, 5.4, 20, 10}));
  EXPECT_EQ(FrameOfOutline({10, 5, -4, -2}, 0, false), (CDoubleRect{6, 3, 4, 2}));
  EXPECT_EQ(FrameOfOutline({10, 5, 0.2, 0}, 0, false), (CDoubleRect{10, 5, 1, 0}));
}

TEST_F(Shape, TurnsAboutItsCentre) {
  shape_.SetRotation(90);
  Paint({10, 15, 40, 10});
  EXPECT_EQ(page_.Ink().bounds, wxRect(25, 0, 10, 40));
  EXPECT_EQ(page_.Ink().count, 400);
}

TEST_F(Shape, HasSmoothEdgesWhenTurned) {
  shape_.SetRotation(45);
  Paint({20, 10, 20, 20});
  int partly = 0;
  for (int x = 0; x < 60; ++x) partly += page_.At(x, 13).alpha > 0 && page_.At(x, 13).alpha < 255;
  EXPECT_GE(partly, 2);
  EXPECT_EQ(page_.At(30, 20), kBlue);
  EXPECT_EQ(page_.At(21, 11), kClear);
}

TEST_F(Shape, EllipsesFillTheFrameOnBothAxes) {
  shape_.SetShapeType(ShapeType::kEllipse);
  Paint({10, 5, 30, 10});
  EXPECT_EQ(page_.Ink().bounds, wxRect(10, 5, 30, 10));
  EXPECT_EQ(page_.At(25, 10), kBlue);
  EXPECT_EQ(page_.At(11, 6), kClear);
}

TEST_F(Shape, CornersMeetButNeverOvershoot) {
  shape_.SetShapeType(ShapeType::kRoundedRectangle);
  shape_.SetCornerRadius(1000);
  Paint({10, 5, 30, 10});
  EXPECT_EQ(page_.Ink().bounds, wxRect(10, 5, 30, 10));
  EXPECT_EQ(page_.At(25, 5), kBlue);
  EXPECT_EQ(page_.At(25, 14), kBlue);
  EXPECT_EQ(page_.At(10, 5), kClear);
  EXPECT_EQ(page_.At(39, 14), kClear);

  CPage half;
  shape_.SetCornerRadius(5);
  shape_.Paint(half.context);
  for (int y = 0; y < 40; ++y)
    for (int x = 0; x < 60; ++x) ASSERT_EQ(half.At(x, y), page_.At(x, y)) << x << ' ' << y;
}

TEST_F(Shape, CornersScaleWithTheMeanOfBothAxes) {
  shape_.SetShapeType(ShapeType::kRoundedRectangle);
  shape_.SetCornerRadius(5);
  page_.context.matrix = CMatrix::Scale(1, 3);
  Paint({0, 0, 40, 12});
  // A radius of 10 pixels.
  EXPECT_GT(page_.At(9, 0).alpha, 230);
  EXPECT_LT(page_.At(5, 0).alpha, 200);
  EXPECT_LT(page_.At(0, 5).alpha, 200);
  EXPECT_EQ(page_.At(1, 1), kClear);
}

TEST_F(Shape, NegativeCornersAreNone) {
  shape_.SetShapeType(ShapeType::kRoundedRectangle);
  shape_.SetCornerRadius(-3);
  Paint({10, 5, 30, 10});
  EXPECT_EQ(page_.Ink().count, 300);
}

TEST_F(Shape, TakesTheWidthOfItsOutlineFromTheLineWidth) {
  shape_.SetPen(wxPen(*wxRED, 1));
  shape_.SetLineWidth(1.1);
  Paint({10, 10, 30, 20});
  // 1.1 mm at 96 pixels an inch, rounded down.
  EXPECT_EQ(page_.Ink().bounds, wxRect(8, 8, 34, 24));
  EXPECT_EQ(page_.At(11, 20), kRed);
  EXPECT_EQ(page_.At(12, 20), kBlue);
}

TEST_F(Shape, OutlinesAreNeverThinnerThanAPixel) {
  shape_.SetPen(wxPen(*wxRED, 7));
  shape_.SetLineWidth(0.01);
  Paint({10, 10, 30, 20});
  EXPECT_EQ(page_.At(10, 20), kRed);
  EXPECT_EQ(page_.At(11, 20), kBlue);
  EXPECT_EQ(page_.At(9, 20), kClear);
}

TEST_F(Shape, KeepsTheEndsAndCornersOfItsPen) {
  wxPen pen(*wxRED, 6);
  pen.SetJoin(wxJOIN_MITER);
  shape_.SetPen(pen);
  shape_.SetColoured(false);
  Paint({10, 10, 30, 20});
  EXPECT_EQ(page_.At(7, 7).alpha, 255);
  pen.SetJoin(wxJOIN_BEVEL);
  CPage bevelled;
  shape_.SetPen(pen);
  shape_.Paint(bevelled.context);
  EXPECT_EQ(bevelled.At(7, 7), kClear);
}

TEST_F(Shape, IsGreyInAllItsColoursIfNotColoured) {
  shape_.SetPen(wxPen(wxColour(255, 0, 0, 50), 2));
  shape_.SetBrush(wxBrush(wxColour(0, 0, 255, 50)));
  shape_.SetColoured(false);
  Paint({10, 10, 20, 20});
  EXPECT_EQ(page_.At(20, 20), (CPixel{29, 29, 29, 255}));
  EXPECT_EQ(page_.At(10, 20), (CPixel{76, 76, 76, 255}));
}

TEST_F(Shape, FadesFromTheLeftToTheRight) {
  shape_.SetGradient({*wxRED, *wxBLUE, true});
  Paint({10, 10, 40, 20});
  EXPECT_GT(page_.At(10, 20).red, 248);
  EXPECT_GT(page_.At(49, 20).blue, 248);
  EXPECT_NEAR(page_.At(30, 20).red, 127, 5);
  EXPECT_EQ(page_.At(30, 10), page_.At(30, 29));
}

TEST_F(Shape, FadesTurnAndMirrorWithTheFrame) {
  shape_.SetGradient({*wxRED, *wxBLUE, true});
  shape_.SetMirror(0, true);
  shape_.SetRotation(90);
  Paint({20, 10, 20, 20});
  EXPECT_GT(page_.At(30, 10).blue, 240);
  EXPECT_GT(page_.At(30, 29).red, 240);
}

TEST_F(Shape, FadesBetweenGreysIfNotColoured) {
  shape_.SetGradient({*wxRED, *wxBLUE, true});
  shape_.SetColoured(false);
  Paint({10, 10, 40, 20});
  const CPixel left = page_.At(10, 20);
  const CPixel right = page_.At(49, 20);
  EXPECT_NEAR(left.red, 76, 2);
  EXPECT_NEAR(right.red, 29, 2);
  EXPECT_EQ(left, (CPixel{left.red, left.red, left.red, 255}));
  EXPECT_EQ(right, (CPixel{right.red, right.red, right.red, 255}));
}

TEST_F(Shape, AGradientWithoutColoursPaintsNothing) {
  shape_.SetGradient({wxColour(), wxColour(), true});
  Paint({10, 10, 40, 20});
  EXPECT_EQ(page_.Ink().count, 0);
}

TEST_F(Shape, IsWhiteOnAMaskWhateverItsColours) {
  shape_.SetPen(wxPen(*wxRED, 2));
  shape_.SetGradient({*wxRED, *wxBLUE, true});
  page_.dc.SetAlphaMask(true);
  Paint({10, 10, 40, 20});
  EXPECT_EQ(page_.At(30, 20), kWhite);
  EXPECT_EQ(page_.At(10, 20), kWhite);
}

TEST_F(Shape, LeavesPenAndBrushThatAreFixed) {
  const wxPen pen(*wxRED, 2);
  page_.dc.SetFixedPen(&pen);
  page_.dc.SetFixedBrush(wxBLACK_BRUSH);
  shape_.SetGradient({*wxGREEN, *wxBLUE, true});
  Paint({10, 10, 40, 20});
  EXPECT_EQ(page_.At(30, 20), kBlack);
  EXPECT_EQ(page_.At(10, 20), kRed);
}

TEST_F(Shape, PensAndBrushesThatAreNoneDrawNothing) {
  shape_.SetPen(wxNullPen);
  shape_.SetBrush(wxNullBrush);
  Paint({10, 10, 40, 20});
  shape_.SetColoured(false);
  Paint({10, 10, 40, 20});
  EXPECT_EQ(page_.Ink().count, 0);
}

TEST_F(Shape, WithoutAFreeFormPaintsNothing) {
  shape_.SetShapeType(ShapeType::kFreeForm);
  Paint({10, 10, 40, 20});
  EXPECT_EQ(page_.Ink().count, 0);
}

TEST_F(Shape, FitsFreeFormsToTheFrameOnEachAxisAlone) {
  shape_.SetShapeType(ShapeType::kFreeForm);
  shape_.SetFreeForm(FormOf({{0, 0}, {100, 0}, {100, 10}, {0, 10}, {0, 0}}));
  Paint({10, 5, 20, 30});
  EXPECT_EQ(page_.Ink().bounds, wxRect(10, 5, 20, 30));
  EXPECT_EQ(page_.Ink().count, 600);
}

TEST_F(Shape, TheStarFollowsTheFrame) {
  shape_.SetShapeType(ShapeType::kFreeForm);
  shape_.SetFreeForm(orlo::makeObject<CFreeFormStar>());
  Paint({5, 5, 50, 30});
  const wxRect bounds = page_.Ink().bounds;
  EXPECT_LE(bounds.x, 6);
  EXPECT_LE(bounds.y, 6);
  EXPECT_GE(bounds.GetRight(), 53);
  EXPECT_GE(bounds.GetBottom(), 33);
  EXPECT_EQ(page_.At(30, 20), kBlue);
  EXPECT_EQ(page_.At(8, 8), kClear);
  EXPECT_EQ(page_.At(30, 33), kClear);
}

TEST_F(Shape, FreeFormsAreClosedByTheirRepeatedPointOnly) {
  shape_.SetShapeType(ShapeType::kFreeForm);
  shape_.SetBrush(*wxTRANSPARENT_BRUSH);
  shape_.SetPen(wxPen(*wxRED, 2));
  shape_.SetFreeForm(FormOf({{0, 0}, {10, 0}, {10, 10}, {0, 10}}));
  Paint({10, 10, 20, 20});
  EXPECT_EQ(page_.At(29, 20), kRed);
  EXPECT_EQ(page_.At(10, 20), kClear);
  shape_.SetFreeForm(FormOf({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}}));
  Paint({10, 10, 20, 20});
  EXPECT_EQ(page_.At(10, 20), kRed);
}

TEST_F(Shape, FreeFormsWithoutAnExtentPaintNothing) {
  shape_.SetShapeType(ShapeType::kFreeForm);
  shape_.SetPen(wxPen(*wxRED, 3));
  const double infinity = std::numeric_limits<double>::infinity();
  for (const auto& form : {FormOf({}), FormOf({{1, 1}}), FormOf({{0, 0}, {0, 5}, {0, 0}}), FormOf({{0, 0}, {5, 0}}),
                           FormOf({{0, 0}, {infinity, 5}, {3, 3}}), FormOf({{1e308, 0}, {-1e308, 5}, {3, 3}})}) {
    shape_.SetFreeForm(form);
    Paint({10, 10, 40, 20});
    EXPECT_EQ(page_.Ink().count, 0);
  }
}

TEST_F(Shape, OfAnUnknownTypePaintsNothing) {
  shape_.SetShapeType(17);
  Paint({10, 10, 40, 20});
  EXPECT_EQ(page_.Ink().count, 0);
}

TEST_F(Shape, FramesThatAreNoPlacesDrawNothingWorse) {
  shape_.SetPen(wxPen(*wxRED, 3, wxPENSTYLE_DOT_DASH));
  shape_.SetGradient({*wxRED, *wxBLUE, true});
  shape_.SetFreeForm(orlo::makeObject<CFreeFormStar>());
  const double infinity = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (const std::int32_t type : {0, 1, 2, 3}) {
    shape_.SetShapeType(type);
    for (const double number : {nan, infinity, -infinity, 1e300, -5.0, 0.0, 4e9, 1e-300}) {
      for (const int rotation : {0, 90, 33}) {
        shape_.SetRotation(rotation);
        shape_.SetCornerRadius(number);
        shape_.SetLineWidth(number);
        Paint({5, 5, number, number});
        Paint({number, number, 5, 5});
        Paint({5, 5, 10, number});
      }
    }
  }
  // The surface still takes what is drawn.
  CGraphicShape plain;
  plain.SetBrush(*wxBLUE_BRUSH);
  Place(plain, {0, 0, 60, 40});
  plain.Paint(page_.context);
  EXPECT_EQ(page_.At(30, 20), kBlue);
}

TEST_F(Shape, FarLargerThanThePictureItIsSeenAsAPart) {
  shape_.SetRotation(30);
  Paint({-5e8, 10, 1e9, 20});
  EXPECT_EQ(page_.At(0, 20), kBlue);
}

TEST_F(Shape, OverlapsOtherShapesAndCircles) {
  CGraphicShape other;
  CGraphicCircle circle;
  CGraphicRectangle rectangle;
  Place(shape_, {0, 0, 10, 10});
  Place(other, {9, 9, 10, 10});
  Place(circle, {11, 0, 10, 10});
  Place(rectangle, {0, 0, 10, 10});
  EXPECT_TRUE(shape_.Intersects(other));
  EXPECT_TRUE(circle.Intersects(other));
  EXPECT_TRUE(other.Intersects(circle));
  EXPECT_FALSE(shape_.Intersects(rectangle));
  EXPECT_FALSE(circle.Intersects(shape_));
  Place(other, {10, 0, 10, 10});
  EXPECT_FALSE(shape_.Intersects(other));
  other.SetRotation(45);
  EXPECT_TRUE(shape_.Intersects(other));
}

TEST_F(Shape, LetsAPointThroughWhereItsOutlineDoesNotReach) {
  shape_.SetShapeType(ShapeType::kEllipse);
  Place(shape_, {10, 10, 20, 20});
  EXPECT_FALSE(shape_.IsTransparentAt(20, 20, page_.context));
  EXPECT_TRUE(shape_.IsTransparentAt(11, 11, page_.context));
}

TEST_F(Shape, IsCalledAsItsOutline) {
  const CToolkitLock lock;
  EXPECT_EQ(shape_.GetDisplayName(), "Rectangle");
  shape_.SetShapeType(ShapeType::kRoundedRectangle);
  EXPECT_EQ(shape_.GetDisplayName(), "Rounded Rectangle");
  shape_.SetShapeType(ShapeType::kEllipse);
  EXPECT_EQ(shape_.GetDisplayName(), "Ellipse");
  shape_.SetShapeType(ShapeType::kFreeForm);
  EXPECT_EQ(shape_.GetDisplayName(), "Shape");
  shape_.SetFreeForm(orlo::makeObject<CFreeFormStar>());
  EXPECT_EQ(shape_.GetDisplayName(), "Star");
  shape_.SetName("mine");
  EXPECT_EQ(shape_.GetDisplayName(), "mine");
}

TEST_F(Shape, KeepsItsFreeFormWhenItsTypeChanges) {
  const auto star = orlo::makeObject<CFreeFormStar>();
  shape_.SetFreeForm(star);
  shape_.SetShapeType(ShapeType::kEllipse);
  EXPECT_EQ(shape_.GetFreeForm(), orlo::P<CFreeForm>(star));
}

TEST_F(Shape, IsClonedWithAFreeFormOfItsOwn) {
  shape_.SetShapeType(ShapeType::kFreeForm);
  shape_.SetFreeForm(orlo::makeObject<CFreeFormStar>());
  shape_.SetPen(wxPen(wxColour(1, 2, 3), 4));
  shape_.SetGradient({*wxRED, *wxGREEN, true});
  shape_.SetLineWidth(2.5);
  shape_.SetCornerRadius(7);
  const auto cloned = shape_.Clone();
  const auto* const clone = orlo::cast<CGraphicShape>(cloned);
  EXPECT_EQ(clone->GetShapeType(), ShapeType::kFreeForm);
  EXPECT_EQ(clone->GetPen(), shape_.GetPen());
  EXPECT_EQ(clone->GetBrush(), shape_.GetBrush());
  EXPECT_EQ(clone->GetGradient().end, *wxGREEN);
  EXPECT_TRUE(clone->GetGradient().ok);
  EXPECT_EQ(clone->GetLineWidth(), 2.5);
  EXPECT_EQ(clone->GetCornerRadius(), 7);
  EXPECT_NE(clone->GetFreeForm(), shape_.GetFreeForm());
  EXPECT_EQ(clone->GetFreeForm()->GetOutline(), shape_.GetFreeForm()->GetOutline());
  EXPECT_TRUE(orlo::tryCast<CFreeFormStar>(clone->GetFreeForm()));
}

TEST(ShapeTypes, AreWrittenAsTextAndReadInAnyCase) {
  EXPECT_EQ(ShapeTypeToXml(0), "rectangle");
  EXPECT_EQ(ShapeTypeToXml(1), "rounded-rectangle");
  EXPECT_EQ(ShapeTypeToXml(2), "ellipse");
  EXPECT_EQ(ShapeTypeToXml(3), "free-form");
  for (const std::int32_t type : {0, 1, 2, 3}) EXPECT_EQ(ShapeTypeFromXml(ShapeTypeToXml(type).Upper()), type);
}

TEST(ShapeTypes, ThatAreUnknownAreErrors) {
  const auto messageOf = [](const auto& action) {
    try {
      action();
    } catch (const wxutil::CWXError& error) {
      return error.getWxMessage();
    }
    return wxString("no error");
  };
  for (const std::int32_t type : {-1, 4})
    EXPECT_EQ(messageOf([&] { ShapeTypeToXml(type); }), "ShapeTypeToXml. Unknwown type");
  EXPECT_EQ(messageOf([] { ShapeTypeFromXml("hexagon"); }), "ShapeTypeFromXml. Unknwown type:hexagon");
  EXPECT_EQ(messageOf([] { ShapeTypeFromXml(""); }), "ShapeTypeFromXml. Unknwown type:");
}

}  // namespace graphics::test
