#include "graphics/elements/GraphicCircle.h"
#include "graphics/elements/GraphicDummy.h"
#include "graphics/elements/GraphicPaper.h"
#include "graphics/elements/GraphicRectangle.h"
#include "tests/elements/Page.h"

#include <gtest/gtest.h>

#include <limits>

namespace graphics::test {

TEST(Rectangle, FillsItsFrameGrownToWholePixels) {
  CPage page;
  CGraphicRectangle rectangle;
  Place(rectangle, {5.5, 6.5, 10.2, 8.2});
  rectangle.SetPen(wxPen(*wxRED, 1));
  rectangle.SetBrush(*wxBLUE_BRUSH);
  rectangle.Paint(page.context);
  EXPECT_EQ(page.Ink().bounds, wxRect(5, 6, 11, 9));
  EXPECT_EQ(page.At(5, 6), kRed);
  EXPECT_EQ(page.At(15, 14), kRed);
  EXPECT_EQ(page.At(10, 10), kBlue);
}

TEST(Rectangle, GoesThroughThePagesMatrix) {
  CPage page;
  page.context.matrix = CMatrix::Scale(2, 3) * CMatrix::Translation(1, 2);
  CGraphicRectangle rectangle;
  Place(rectangle, {2, 2, 5, 4});
  rectangle.Paint(page.context);
  EXPECT_EQ(page.Ink().bounds, wxRect(5, 8, 11, 13));
}

TEST(Rectangle, IsOutlinedInBlackAndNotFilledUnlessToldOtherwise) {
  CPage page;
  CGraphicRectangle rectangle;
  Place(rectangle, {5, 5, 20, 20});
  rectangle.Paint(page.context);
  EXPECT_EQ(page.At(5, 10), kBlack);
  EXPECT_EQ(page.At(15, 15), kClear);
}

TEST(Rectangle, IsNotTurnedByItsRotation) {
  CPage page;
  CGraphicRectangle rectangle;
  Place(rectangle, {5, 5, 20, 10});
  rectangle.SetRotation(30);
  rectangle.Paint(page.context);
  EXPECT_EQ(page.Ink().bounds, wxRect(5, 5, 21, 11));
}

TEST(Rectangle, LosesItsColoursToTheEffectsOfTheContext) {
  CPage page;
  page.dc.SetGreyscale(true);
  CGraphicRectangle rectangle;
  Place(rectangle, {5, 5, 20, 10});
  rectangle.SetBrush(*wxBLUE_BRUSH);
  rectangle.Paint(page.context);
  EXPECT_EQ(page.At(10, 10), (CPixel{29, 29, 29, 255}));
}

TEST(Rectangle, KeepsBrushAndPenInFiles) {
  const CToolkitLock lock;
  CGraphicRectangle rectangle;
  rectangle.SetPen(wxPen(wxColour(1, 2, 3, 4), 5, wxPENSTYLE_DOT));
  rectangle.SetBrush(wxBrush(wxColour(6, 7, 8, 9)));
  const auto copy = Reloaded(rectangle);
  EXPECT_EQ(copy->GetPen().GetColour(), wxColour(1, 2, 3, 4));
  EXPECT_EQ(copy->GetPen().GetWidth(), 5);
  EXPECT_EQ(copy->GetPen().GetStyle(), wxPENSTYLE_DOT);
  EXPECT_EQ(copy->GetBrush().GetColour(), wxColour(6, 7, 8, 9));
}

TEST(Rectangle, FramesThatAreNoPlacesDrawNothingWorse) {
  CPage page;
  CGraphicRectangle rectangle;
  CGraphicCircle circle;
  CGraphicPaper paper;
  const double infinity = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (CGraphicElement* element : {static_cast<CGraphicElement*>(&rectangle), static_cast<CGraphicElement*>(&circle),
                                   static_cast<CGraphicElement*>(&paper)}) {
    for (const double size : {nan, infinity, -infinity, 1e300, -5.0, 0.0, 4e9}) {
      Place(*element, {5, 5, size, size});
      element->Paint(page.context);
      Place(*element, {size, size, 5, 5});
      element->Paint(page.context);
    }
  }
}

TEST(Circle, StandsInTheMiddleOfItsFrameAsWideAsIt) {
  CPage page;
  CGraphicCircle circle;
  Place(circle, {10, 10, 20, 20});
  circle.SetPen(*wxTRANSPARENT_PEN);
  circle.SetBrush(*wxBLUE_BRUSH);
  circle.Paint(page.context);
  EXPECT_EQ(page.Ink().bounds, wxRect(10, 10, 20, 20));
  EXPECT_EQ(page.At(20, 20), kBlue);
  EXPECT_EQ(page.At(11, 11), kClear);
}

TEST(Circle, TakesItsRadiusFromTheWidth) {
  CPage page;
  CGraphicCircle circle;
  Place(circle, {10, 15, 20, 6});
  circle.SetBrush(*wxBLUE_BRUSH);
  circle.Paint(page.context);
  EXPECT_EQ(page.Ink().bounds.height, page.Ink().bounds.width);
  EXPECT_EQ(page.At(20, 18), kBlue);
}

TEST(Dummy, DoesNotGetSmallerThanItsSmallestSize) {
  const CToolkitLock lock;
  CGraphicDummy dummy;
  dummy.SetMinSize({10, 20});
  dummy.SetSize({5, 30});
  EXPECT_EQ(dummy.GetSize(), (CDoubleSize{10, 30}));
  dummy.SetSize({1, 1});
  EXPECT_EQ(dummy.GetSize(), (CDoubleSize{10, 20}));
  EXPECT_EQ(dummy.Clone()->GetSize(), (CDoubleSize{10, 20}));
}

TEST(Dummy, PaintsNothing) {
  CPage page;
  CGraphicDummy dummy;
  Place(dummy, {5, 5, 20, 20});
  dummy.Paint(page.context);
  EXPECT_EQ(page.Ink().count, 0);
}

TEST(Paper, IsALightSheetWithABlackEdgeAndAShadow) {
  CPage page;
  CGraphicPaper paper;
  Place(paper, {5, 5, 20, 15});
  paper.Paint(page.context);
  constexpr CPixel kSheet{240, 240, 240, 255};
  constexpr CPixel kShadow{100, 100, 100, 255};
  EXPECT_EQ(page.At(5, 5), kBlack);
  EXPECT_EQ(page.At(25, 20), kBlack);
  EXPECT_EQ(page.At(10, 10), kSheet);
  EXPECT_EQ(page.At(6, 21), kClear);
  EXPECT_EQ(page.At(7, 21), kShadow);
  EXPECT_EQ(page.At(26, 6), kClear);
  EXPECT_EQ(page.At(26, 7), kShadow);
  EXPECT_EQ(page.At(26, 21), kShadow);
  EXPECT_EQ(page.Ink().bounds, wxRect(5, 5, 22, 17));
}

}  // namespace graphics::test
