#include "graphics/geometry/DoublePoint.h"
#include "graphics/geometry/DoubleSize.h"

#include <gtest/gtest.h>

#include <limits>

namespace graphics {
namespace {

TEST(DoublePoint, AddsSubtractsNegatesAndScales) {
  EXPECT_EQ(CDoublePoint(1, 2) + CDoublePoint(3, 5), CDoublePoint(4, 7));
  EXPECT_EQ(CDoublePoint(1, 2) - CDoublePoint(3, 5), CDoublePoint(-2, -3));
  EXPECT_EQ(-CDoublePoint(1, -2), CDoublePoint(-1, 2));
  EXPECT_EQ(CDoublePoint(1, 2) * 2.5, CDoublePoint(2.5, 5));
  EXPECT_EQ(CDoublePoint(1, 2) + 10.0, CDoublePoint(11, 12));
  EXPECT_EQ(CDoublePoint(1, 2) - 10.0, CDoublePoint(-9, -8));
}

TEST(DoublePoint, HasALengthAndAUnitVector) {
  EXPECT_EQ(CDoublePoint(3, 4).Length(), 5);
  EXPECT_EQ(CDoublePoint(3, 4).Unit(), CDoublePoint(0.6, 0.8));
}

TEST(DoublePoint, HasAZeroUnitVectorWhereItIsTooShort) {
  EXPECT_EQ(CDoublePoint(0, 0.00005).Unit(), CDoublePoint(0, 0));
  EXPECT_EQ(CDoublePoint(0, 0.0001).Unit(), CDoublePoint(0, 1));
}

TEST(DoublePoint, TurnsBy90DegreesFromTheXAxisToTheYAxis) {
  const CDoublePoint turned = CDoublePoint(1, 0).Rotated90();
  EXPECT_NEAR(turned.x, 0, 1e-12);
  EXPECT_NEAR(turned.y, 1, 1e-12);
}

TEST(DoublePoint, BecomesAPixelByTruncation) {
  EXPECT_EQ(CDoublePoint(1.9, -1.9).ToPoint(), wxPoint(1, -1));
  EXPECT_EQ(CDoublePoint(std::numeric_limits<double>::quiet_NaN(), 0).ToPoint(), wxPoint(0, 0));
}

TEST(DoublePoint, ComesFromASize) {
  EXPECT_EQ(CDoublePoint(wxSize(3, 4)), CDoublePoint(3, 4));
}

TEST(DoubleSize, FitsIntoAnotherWithItsAspectRatioKept) {
  EXPECT_EQ((CDoubleSize{4, 2}.FitInto({2, 2})), (CDoubleSize{2, 1}));
  EXPECT_EQ((CDoubleSize{1, 2}.FitInto({10, 4})), (CDoubleSize{2, 4}));
}

}  // namespace
}  // namespace graphics
