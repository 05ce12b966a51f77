#include "graphics/geometry/Angles.h"
#include "graphics/geometry/Matrix.h"
#include "graphics/geometry/RectPoints.h"
#include "graphics/geometry/Transform.h"

#include <gtest/gtest.h>

namespace graphics {
namespace {

TEST(Matrix, IsAllZeroWhenNew) {
  for (const double cell : CMatrix().cells) EXPECT_EQ(cell, 0);
  EXPECT_EQ(CMatrix().MapPoint({3, 4}), CDoublePoint(0, 0));
}

TEST(Matrix, ScalesTurnsAndMoves) {
  EXPECT_EQ(CMatrix::Scale(2, 3).MapPoint({5, 7}), CDoublePoint(10, 21));
  EXPECT_EQ(CMatrix::Translation(2, 3).MapPoint({5, 7}), CDoublePoint(7, 10));
  EXPECT_EQ(CMatrix::Translation(CDoublePoint(2, 3)), CMatrix::Translation(2, 3));
  const CDoublePoint turned = CMatrix::Rotation(DegToRad(90)).MapPoint({1, 0});
  EXPECT_NEAR(turned.x, 0, 1e-12);
  EXPECT_NEAR(turned.y, 1, 1e-12);
}

TEST(Matrix, MovesPointsByItsThirdAndItsFourthRow) {
  CMatrix m = CMatrix::Translation(100, 200);
  m[8] = 10;
  m[9] = 20;
  EXPECT_EQ(m.MapPoint({1, 2}), CDoublePoint(111, 222));
}

TEST(Matrix, MovesDirectionsByItsThirdRowOnly) {
  CMatrix m = CMatrix::Translation(100, 200);
  m[8] = 10;
  m[9] = 20;
  EXPECT_EQ(m.MapDirection({1, 2}), CDoublePoint(11, 22));
}

TEST(Matrix, LetsTheLeftFactorOfAProductActFirst) {
  const CMatrix product = CMatrix::Translation(1, 0) * CMatrix::Scale(10, 10);
  EXPECT_EQ(product.MapPoint({1, 1}), CDoublePoint(20, 10));
  EXPECT_EQ(product.GetScaleX(), 10);
  EXPECT_EQ((CMatrix::Scale(2, 3) * CMatrix::Identity()).GetScaleY(), 3);
}

TEST(Matrix, MapsARectangleByTwoCornersAndMayTurnItInsideOut) {
  EXPECT_EQ(CMatrix::Scale(-2, 1).MapRect({1, 1, 3, 3}), (CDoubleRect{-2, 1, -6, 3}));
}

TEST(Transform, LetsTheLastStepActFirst) {
  CTransform transform;
  transform.Apply(CMatrix::Scale(10, 10));
  transform.Apply(CMatrix::Translation(1, 0));
  EXPECT_EQ(transform.GetCurrent().MapPoint({1, 1}), CDoublePoint(20, 10));
}

TEST(Transform, RemembersWhatItWasBefore) {
  CTransform transform;
  EXPECT_TRUE(transform.GetHistory().empty());
  transform.Apply(CMatrix::Scale(10, 10));
  transform.Apply(CMatrix::Translation(1, 0));
  ASSERT_EQ(transform.GetHistory().size(), 2U);
  EXPECT_EQ(transform.GetTop(), CMatrix::Scale(10, 10));
  const CTransform copy = transform;
  EXPECT_EQ(copy.GetHistory(), transform.GetHistory());
  EXPECT_EQ(copy.GetCurrent(), transform.GetCurrent());
}

TEST(Transform, BuiltFromAMatrixHasAppliedItToTheIdentity) {
  const CTransform transform(CMatrix::Scale(2, 2));
  EXPECT_EQ(transform.GetCurrent(), CMatrix::Scale(2, 2));
  EXPECT_EQ(transform.GetTop(), CMatrix::Identity());
}

}  // namespace
}  // namespace graphics
