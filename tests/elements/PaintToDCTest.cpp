#include "graphics/elements/GraphicRectangle.h"
#include "graphics/model/PaintToDC.h"
#include "tests/elements/Page.h"

#include <gtest/gtest.h>

namespace graphics::test {

namespace {

void ExpectNear(CDoublePoint point, CDoublePoint wanted) {
  EXPECT_NEAR(point.x, wanted.x, 1e-9);
  EXPECT_NEAR(point.y, wanted.y, 1e-9);
}

constexpr CDoubleRect kTarget{100, 200, 40, 20};
constexpr CDoubleRect kLocal{0, 0, 40, 20};

}  // namespace

TEST(PaintToDC, AnUnturnedElementWithEqualBoxesGivesTheMatrixUnchanged) {
  CPage page;
  const CGraphicRectangle element;
  const CMatrix matrix = CMatrix::Scale(2, 3) * CMatrix::Translation(5, 7);
  const CPaintToDC lines(&page.dc, matrix, &element, kTarget, kTarget);
  EXPECT_EQ(lines.GetMatrix(), matrix);
}

TEST(PaintToDC, TheCentreOfTheLocalBoxComesToTheCentreOfTheTarget) {
  CPage page;
  CGraphicRectangle element;
  element.SetRotation(33);
  element.SetMirror(1, true);
  const CPaintToDC lines(&page.dc, CMatrix::Identity(), &element, kTarget, kLocal);
  ExpectNear(lines.GetMatrix().MapPoint({20, 10}), {120, 210});
}

TEST(PaintToDC, PointsAreMirroredBeforeTheyAreTurned) {
  CPage page;
  CGraphicRectangle element;
  element.SetRotation(90);
  element.SetMirror(0, true);
  const CPaintToDC lines(&page.dc, CMatrix::Identity(), &element, kTarget, kLocal);
  // Five to the right of the centre goes five to the left, and from there a quarter turn leads upwards.
  ExpectNear(lines.GetMatrix().MapPoint({25, 10}), {120, 205});
  ExpectNear(lines.GetMatrix().MapPoint({20, 15}), {115, 210});
}

}  // namespace graphics::test
