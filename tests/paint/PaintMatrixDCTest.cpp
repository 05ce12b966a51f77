#include "graphics/paint/PaintMatrixDC.h"
#include "tests/paint/Canvas.h"

#include <gtest/gtest.h>

#include <limits>

namespace graphics::test {

TEST(PaintMatrixDC, AHorizontalLineLandsOnTheRowBelowItsHeight) {
  CCanvas canvas;
  CPaintMatrixDC lines(&canvas.dc, CMatrix::Identity());
  lines.SetPen(wxPen(*wxRED, 1));
  lines.DrawLine(2.0, 10.99, 12.0, 10.99);
  EXPECT_EQ(canvas.Ink().bounds, wxRect(2, 10, 10, 1));
  EXPECT_EQ(canvas.At(2, 10), kRed);
}

TEST(PaintMatrixDC, NegativeCoordinatesAreRoundedDown) {
  CCanvas canvas;
  CPaintMatrixDC lines(&canvas.dc, CMatrix::Identity());
  lines.SetPen(wxPen(*wxRED, 1));
  lines.DrawLine(-0.5, 0, -0.5, 20);
  EXPECT_EQ(canvas.Ink().count, 0);
}

TEST(PaintMatrixDC, StaysOnePixelWideUnderAnyScale) {
  CCanvas canvas;
  CPaintMatrixDC lines(&canvas.dc, CMatrix::Scale(10, 10) * CMatrix::Translation(3, 4));
  lines.SetPen(wxPen(*wxRED, 1));
  lines.DrawLine(0, 1, 2, 1);
  EXPECT_EQ(canvas.Ink().bounds, wxRect(3, 14, 20, 1));
}

TEST(PaintMatrixDC, SetsPenAndBrushThroughTheEffects) {
  CCanvas canvas;
  canvas.dc.SetGreyscale(true);
  CPaintMatrixDC lines(&canvas.dc, CMatrix::Identity());
  lines.SetPen(wxPen(*wxBLUE, 1));
  lines.SetBrush(*wxBLUE_BRUSH);
  EXPECT_EQ(canvas.dc.GetPen().GetColour(), wxColour(29, 29, 29));
  EXPECT_EQ(canvas.dc.GetBrush().GetColour(), wxColour(29, 29, 29));
}

TEST(PaintMatrixDC, ItsPositionStaysAtTheOrigin) {
  CCanvas canvas;
  CPaintMatrixDC lines(&canvas.dc, CMatrix::Translation(5, 5));
  lines.DrawLine(1, 1, 30, 20);
  EXPECT_EQ(lines.position, CDoublePoint(0, 0));
  EXPECT_EQ(lines.GetMatrix(), CMatrix::Translation(5, 5));
}

TEST(PaintMatrixDC, SurvivesCoordinatesThatAreNoPlaces) {
  CCanvas canvas;
  CPaintMatrixDC lines(&canvas.dc, CMatrix::Identity());
  const double infinity = std::numeric_limits<double>::infinity();
  lines.SetPen(wxPen(*wxRED, 1));
  lines.DrawLine(std::numeric_limits<double>::quiet_NaN(), -infinity, infinity, 1e300);
}

}  // namespace graphics::test
