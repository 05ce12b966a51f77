#include "tests/paint/Canvas.h"

#include <gtest/gtest.h>

#include <limits>

namespace graphics::test {

TEST(CrispDrawing, AHorizontalLineCoversWholePixelsOfOneRowWithoutItsEnd) {
  CCanvas canvas;
  canvas.dc.SetPen(wxPen(*wxRED, 1));
  canvas.dc.DrawLine(3, 10, 8, 10);
  EXPECT_EQ(canvas.At(3, 10), kRed);
  EXPECT_EQ(canvas.At(7, 10), kRed);
  EXPECT_EQ(canvas.Ink().bounds, wxRect(3, 10, 5, 1));
}

TEST(CrispDrawing, AVerticalLineDrawnUpwardsStartsAtItsFirstPoint) {
  CCanvas canvas;
  canvas.dc.SetPen(wxPen(*wxRED, 1));
  canvas.dc.DrawLine(5, 20, 5, 15);
  EXPECT_EQ(canvas.At(5, 20), kRed);
  EXPECT_EQ(canvas.At(5, 16), kRed);
  EXPECT_EQ(canvas.Ink().bounds, wxRect(5, 16, 1, 5));
}

TEST(CrispDrawing, ALineFromAPointToItselfDrawsNothing) {
  CCanvas canvas;
  canvas.dc.SetPen(wxPen(*wxRED, 1));
  canvas.dc.DrawLine(5, 5, 5, 5);
  EXPECT_EQ(canvas.Ink().count, 0);
}

TEST(CrispDrawing, ARectangleHasFourFullEdgesAndItsBrushInside) {
  CCanvas canvas;
  canvas.dc.SetPen(wxPen(*wxRED, 1));
  canvas.dc.SetBrush(wxBrush(*wxBLUE));
  canvas.dc.DrawRectangle(2, 3, 10, 8);
  EXPECT_EQ(canvas.Ink().bounds, wxRect(2, 3, 10, 8));
  EXPECT_EQ(canvas.Ink().count, 80);
  for (const wxPoint corner : {wxPoint(2, 3), wxPoint(11, 3), wxPoint(2, 10), wxPoint(11, 10)})
    EXPECT_EQ(canvas.At(corner.x, corner.y), kRed);
  EXPECT_EQ(canvas.At(6, 3), kRed);
  EXPECT_EQ(canvas.At(3, 4), kBlue);
  EXPECT_EQ(canvas.At(10, 9), kBlue);
}

TEST(CrispDrawing, ARectangleWithoutAPenIsFilledToItsEdges) {
  CCanvas canvas;
  canvas.dc.SetPen(*wxTRANSPARENT_PEN);
  canvas.dc.SetBrush(wxBrush(*wxBLUE));
  canvas.dc.DrawRectangle(2, 3, 10, 8);
  EXPECT_EQ(canvas.At(2, 3), kBlue);
  EXPECT_EQ(canvas.At(11, 10), kBlue);
  EXPECT_EQ(canvas.Ink().count, 80);
}

TEST(CrispDrawing, ColoursAreLaidOverWhatIsThereWithAlpha) {
  CCanvas canvas;
  canvas.dc.SetPen(*wxTRANSPARENT_PEN);
  canvas.dc.SetBrush(wxBrush(wxColour(255, 0, 0, 128)));
  canvas.dc.DrawRectangle(0, 0, 5, 5);
  EXPECT_EQ(canvas.At(2, 2), (CPixel{128, 0, 0, 128}));
}

TEST(CrispDrawing, ABitmapIsDrawnThroughItsOwnAlpha) {
  CCanvas canvas;
  wxBitmap half = MakeAlphaBitmap(2, 2);
  SetPixelOf(half, 1, 1, {0, 0, 100, 100});
  canvas.dc.DrawBitmap(half, 10, 10);
  EXPECT_EQ(canvas.At(11, 11), (CPixel{0, 0, 100, 100}));
  EXPECT_EQ(canvas.Ink().count, 1);
}

TEST(CrispDrawing, CoordinatesBeyondAnyPictureAreDrawnAsFarAsTheyCanBeSeen) {
  constexpr int kFar = std::numeric_limits<int>::max();
  CCanvas canvas;
  canvas.dc.SetPen(wxPen(*wxRED, 1));
  canvas.dc.SetBrush(wxBrush(*wxBLUE));
  canvas.dc.DrawRectangle(-kFar, -kFar, kFar, kFar);
  EXPECT_EQ(canvas.At(0, 0), kClear);
  canvas.dc.DrawRectangle(5, -kFar, kFar, kFar);
  canvas.dc.DrawRectangle(5, 30, kFar, kFar);
  EXPECT_EQ(canvas.At(5, 35), kRed);
  EXPECT_EQ(canvas.At(6, 35), kBlue);
  canvas.dc.DrawLine(-kFar, 20, kFar, 20);
  EXPECT_EQ(canvas.At(0, 20), kRed);
  EXPECT_EQ(canvas.At(59, 20), kRed);
  const wxPoint corners[] = {{-kFar, -kFar}, {kFar, -kFar}, {kFar, kFar}};
  canvas.dc.DrawPolygon(3, corners, 0, 0);
  EXPECT_EQ(canvas.At(50, 10), kBlue);
  canvas.dc.DrawRoundedRectangle(-kFar, -kFar, kFar, kFar, 5.0);
  canvas.dc.DrawText("far", kFar, -kFar);
  canvas.dc.DrawRotatedText("far", -kFar, kFar, 30.0);
}

TEST(CrispDrawing, ALongDashedLineEndsInTime) {
  CCanvas canvas;
  for (const wxPenStyle style : {wxPENSTYLE_DOT, wxPENSTYLE_SHORT_DASH, wxPENSTYLE_DOT_DASH}) {
    canvas.dc.SetPen(wxPen(*wxBLACK, 1, style));
    canvas.dc.DrawLine(-2'000'000'000, 5, 2'000'000'000, 6);
    canvas.dc.DrawRectangle(-2'000'000'000, 2, 2'000'000'000, 30);
  }
  EXPECT_GT(canvas.Ink().count, 0);
}

TEST(CrispDrawing, ResolutionIsTheOneThatTextIsLaidOutWith) {
  CCanvas canvas;
  EXPECT_EQ(canvas.dc.GetPPI(), wxSize(96, 96));
  EXPECT_EQ(canvas.dc.GetSize(), wxSize(60, 40));
}

}  // namespace graphics::test
