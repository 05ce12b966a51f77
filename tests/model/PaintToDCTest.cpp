#include "graphics/model/PaintToDC.h"

#include <gtest/gtest.h>

namespace graphics {
namespace {

void ExpectNear(CDoublePoint point, CDoublePoint expected) {
  EXPECT_NEAR(point.x, expected.x, 1e-9);
  EXPECT_NEAR(point.y, expected.y, 1e-9);
}

const CDoubleRect kBox{10, 10, 20, 10};

TEST(PaintToDC, LeavesTheMatrixOfAnElementThatIsNeitherTurnedNorMirrored) {
  const CGraphicBase element;
  const CMatrix matrix = CMatrix::Scale(2, 3);
  EXPECT_EQ(CPaintToDC(nullptr, matrix, &element, kBox, {15, 5, 10, 20}).GetMatrix(), matrix);
}

TEST(PaintToDC, BringsTheCentreOfTheLocalBoxToThatOfTheTarget) {
  CGraphicBase element;
  element.SetRotation(37);
  element.SetMirror(1, true);
  const CPaintToDC dc(nullptr, CMatrix::Scale(2, 2), &element, kBox, {0, 0, 4, 4});
  ExpectNear(dc.GetMatrix().MapPoint({2, 2}), {40, 30});
}

TEST(PaintToDC, MirrorsBeforeItTurns) {
  CGraphicBase element;
  element.SetRotation(90);
  element.SetMirror(0, true);
  const CPaintToDC dc(nullptr, CMatrix::Identity(), &element, kBox, kBox);
  // A point right of the centre goes left of it, and from there a quarter turn leads above it.
  ExpectNear(dc.GetMatrix().MapPoint({25, 15}), {20, 10});
}

TEST(PaintToDC, HasItsPositionAtTheOrigin) {
  const CGraphicBase element;
  EXPECT_EQ(CPaintToDC(nullptr, CMatrix::Identity(), &element, kBox, kBox).position, CDoublePoint(0, 0));
}

}  // namespace
}  // namespace graphics
