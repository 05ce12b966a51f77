#include "graphics/geometry/Matrix.h"
#include "graphics/geometry/Polygon.h"
#include "graphics/geometry/RectPoints.h"

#include <gtest/gtest.h>

namespace graphics {
namespace {

TEST(RectPoints, StandInTheirFixedOrder) {
  const CRectPoints points = CRectPoints::FromTopLeft({10, 20}, {4, 6});
  const CDoublePoint expected[] = {{10, 20}, {14, 20}, {14, 26}, {10, 26}, {12, 23},
                                   {10, 23}, {12, 20}, {14, 23}, {12, 26}};
  ASSERT_EQ(points.GetCount(), 9);
  for (int i = 0; i < 9; ++i) EXPECT_EQ(points.GetPoint(i), expected[i]) << "point " << i;
}

TEST(RectPoints, ComeFromTheCentreToo) {
  const CRectPoints byCenter = CRectPoints::FromCenter({12, 23}, {4, 6});
  const CRectPoints byTopLeft = CRectPoints::FromTopLeft({10, 20}, {4, 6});
  for (int i = 0; i < 9; ++i) EXPECT_EQ(byCenter.GetPoint(i), byTopLeft.GetPoint(i)) << "point " << i;
}

TEST(RectPoints, MoveTogetherUpToTheirCount) {
  CRectPoints points = CRectPoints::FromRect({0, 0, 2, 2});
  points.count = 4;
  points.Translate(5, 6);
  EXPECT_EQ(points.GetPoint(3), CDoublePoint(5, 8));
  EXPECT_EQ(points.GetPoint(4), CDoublePoint(1, 1));
}

TEST(RectPoints, AreBoundedByTheirCornersAlone) {
  CRectPoints points = CRectPoints::FromRect({0, 0, 2, 2});
  points.SetPoint(4, {100, 100});
  points.SetPoint(2, {-3, 7});
  EXPECT_EQ(points.BoundingRect(), (CDoubleRect{-3, 0, 5, 7}));
}

TEST(RectPoints, GoThroughAMatrixOneByOne) {
  const CRectPoints mapped = CMatrix::Scale(2, 3).MapPoints(CRectPoints::FromRect({1, 1, 2, 2}));
  EXPECT_EQ(mapped.GetPoint(0), CDoublePoint(2, 3));
  EXPECT_EQ(mapped.GetPoint(8), CDoublePoint(4, 9));
}

TEST(RectPoints, BecomeAClosedOutline) {
  const CPolygon polygon = CRectPoints::FromRect({0.9, 0, 2, 2}).ToPolygon();
  ASSERT_EQ(polygon.count, 5);
  EXPECT_EQ(polygon.points[0], CDoublePoint(0.9, 0));
  EXPECT_EQ(polygon.points[4], polygon.points[0]);
  EXPECT_EQ(polygon.pixels[1], wxPoint(2, 0));
}

TEST(Polygon, HasRoomForTwentyPoints) {
  CPolygon polygon;
  for (int i = 0; i < 20; ++i) EXPECT_TRUE(polygon.Append({i + 0.5, 0}));
  EXPECT_FALSE(polygon.Append({1, 1}));
  EXPECT_EQ(polygon.count, 20);
  EXPECT_EQ(polygon.pixels[19], wxPoint(19, 0));
}

}  // namespace
}  // namespace graphics
