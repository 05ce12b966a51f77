#include "graphics/geometry/Angles.h"

#include <gtest/gtest.h>

#include <limits>

namespace graphics {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(Truncation, DropsTheFractionTowardsZero) {
  EXPECT_EQ(TruncateToInt(2.9), 2);
  EXPECT_EQ(TruncateToInt(-2.9), -2);
}

TEST(Truncation, ClampsWhatIsOutOfRange) {
  EXPECT_EQ(TruncateToInt(1e300), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(TruncateToInt(-1e300), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(TruncateToInt(kInfinity), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(TruncateToInt(-kInfinity), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(TruncateToInt(2147483648.0), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(TruncateToInt(2147483647.0), 2147483647);
}

TEST(Truncation, MakesNotANumberZero) {
  EXPECT_EQ(TruncateToInt(kNaN), 0);
  EXPECT_EQ(FloorToInt(kNaN), 0);
}

TEST(Flooring, RoundsDownBelowZeroToo) {
  EXPECT_EQ(FloorToInt(-0.5), -1);
  EXPECT_EQ(FloorToInt(10.99), 10);
  EXPECT_EQ(FloorToInt(-kInfinity), std::numeric_limits<std::int32_t>::min());
}

TEST(Angles, ConvertBetweenDegreesAndRadians) {
  EXPECT_DOUBLE_EQ(DegToRad(180), 3.1415926535897931);
  EXPECT_DOUBLE_EQ(RadToDeg(DegToRad(33)), 33);
}

TEST(Nearness, IsStrictlyBelowTheTolerance) {
  EXPECT_TRUE(IsNear(1, 1.25, 0.5));
  EXPECT_FALSE(IsNear(1, 1.5, 0.5));
  EXPECT_TRUE(IsZero(-0.25, 0.5));
  EXPECT_FALSE(IsZero(-0.5, 0.5));
}

TEST(Nearness, IsNeverGivenForNotANumberOrInfinity) {
  EXPECT_FALSE(IsNear(kNaN, kNaN, 1));
  EXPECT_FALSE(IsNear(kInfinity, kInfinity, 1));
}

TEST(RightAngles, AreToldByTheWholePart) {
  EXPECT_TRUE(IsRightAngle(0));
  EXPECT_TRUE(IsRightAngle(90.9));
  EXPECT_TRUE(IsRightAngle(-270));
  EXPECT_TRUE(IsRightAngle(0.5));
  EXPECT_FALSE(IsRightAngle(89.9));
  EXPECT_FALSE(IsRightAngle(45));
}

}  // namespace
}  // namespace graphics
