#include "graphics/geometry/DoubleRect.h"
#include "graphics/geometry/Margins.h"

#include <gtest/gtest.h>

#include <limits>

namespace graphics {
namespace {

TEST(DoubleRect, ComesFromItsCentreOrFromTwoCorners) {
  EXPECT_EQ(CDoubleRect::FromCenter({10, 20}, {4, 6}), (CDoubleRect{8, 17, 4, 6}));
  EXPECT_EQ(CDoubleRect::FromCorners({1, 2}, {4, 0}), (CDoubleRect{1, 2, 3, -2}));
}

TEST(DoubleRect, HasItsLeftAndTopEdgeInsideAndTheOthersOutside) {
  const CDoubleRect rect{1, 2, 3, 4};
  EXPECT_TRUE(rect.Contains(1, 2));
  EXPECT_TRUE(rect.Contains(3.999, 5.999));
  EXPECT_FALSE(rect.Contains(4, 3));
  EXPECT_FALSE(rect.Contains(2, 6));
  EXPECT_FALSE(rect.Contains(0.999, 3));
}

TEST(DoubleRect, WithoutWidthContainsNoPoint) {
  EXPECT_FALSE((CDoubleRect{1, 2, 0, 4}.Contains(1, 3)));
}

TEST(DoubleRect, GivesItsReferencePoints) {
  const CDoubleRect rect{1, 2, 4, 6};
  EXPECT_EQ(rect.GetPoint(0), CDoublePoint(1, 2));
  EXPECT_EQ(rect.GetPoint(1), CDoublePoint(5, 8));
  EXPECT_EQ(rect.GetPoint(2), CDoublePoint(3, 5));
  EXPECT_EQ(rect.GetPoint(-7), rect.GetCenter());
  EXPECT_EQ(rect.GetSize(), (CDoubleSize{4, 6}));
}

TEST(DoubleRect, IntersectsWhereBothAre) {
  const CDoubleRect a{0, 0, 10, 10};
  EXPECT_EQ(a.Intersect({4, 5, 10, 10}), (CDoubleRect{4, 5, 6, 5}));
  EXPECT_TRUE(a.Intersects({4, 5, 10, 10}));
}

TEST(DoubleRect, HasAnIntersectionWithoutSizeWhereTheyOnlyTouch) {
  const CDoubleRect a{0, 0, 10, 10};
  const CDoubleRect common = a.Intersect({10, 3, 5, 5});
  EXPECT_EQ(common.width, 0);
  EXPECT_EQ(common.height, 0);
  EXPECT_EQ(common.left, 10);
  EXPECT_EQ(common.top, 3);
  EXPECT_FALSE(a.Intersects({10, 3, 5, 5}));
  EXPECT_FALSE(a.Intersects({30, 30, 5, 5}));
}

TEST(DoubleRect, InflatesToWholePixelsAndOneMore) {
  EXPECT_EQ((CDoubleRect{1.7, -0.5, 3.2, 4}.Inflated()), (CDoubleRect{1, -1, 4, 5}));
}

TEST(DoubleRect, DeflatesByFixedMargins) {
  CMargins margins;
  margins.left = 1;
  margins.top = 2;
  margins.right = 3;
  margins.bottom = 4;
  margins.leftFactor = 0.5;
  EXPECT_EQ((CDoubleRect{10, 10, 20, 20}.Deflated(margins)), (CDoubleRect{11, 12, 16, 14}));
}

TEST(DoubleRect, IsNearIfAllFourValuesAre) {
  const CDoubleRect rect{1, 2, 3, 4};
  EXPECT_TRUE(rect.IsNear({1.0005, 2, 3, 4}, 0.001));
  EXPECT_FALSE(rect.IsNear({1, 2, 3, 4.002}, 0.001));
  EXPECT_FALSE(rect.IsNear({1, 2, 3, std::numeric_limits<double>::infinity()}, 0.001));
}

TEST(DoubleRect, IsEmptyOnlyAtTheOriginAndWithoutSize) {
  EXPECT_TRUE(CDoubleRect().IsEmpty());
  EXPECT_TRUE((CDoubleRect{0.0009, -0.0009, 0, 0}.IsEmpty()));
  EXPECT_FALSE((CDoubleRect{5, 0, 0, 0}.IsEmpty()));
  EXPECT_FALSE((CDoubleRect{0, 0, 0, 0.001}.IsEmpty()));
}

TEST(DoubleRect, BecomesAPixelRectangleByTruncation) {
  EXPECT_EQ((CDoubleRect{1.9, -1.9, 3.9, std::numeric_limits<double>::quiet_NaN()}.ToRect()), wxRect(1, -1, 3, 0));
}

TEST(Margins, ResolveToSharesOfWhatTheFixedOnesLeave) {
  CMargins margins;
  margins.left = 10;
  margins.right = 20;
  margins.top = 1;
  margins.bottom = 2;
  margins.leftFactor = 0.5;
  margins.topFactor = 0.25;
  margins.rightFactor = 0.1;
  margins.bottomFactor = 1;
  const CMargins resolved = margins.Resolve(100, 43);
  EXPECT_EQ(resolved.left, 45);
  EXPECT_EQ(resolved.right, 27);
  EXPECT_EQ(resolved.top, 11);
  EXPECT_EQ(resolved.bottom, 42);
  EXPECT_EQ(resolved.leftFactor, 0);
  EXPECT_EQ(resolved.topFactor, 0);
  EXPECT_EQ(resolved.rightFactor, 0);
  EXPECT_EQ(resolved.bottomFactor, 0);
}

}  // namespace
}  // namespace graphics
