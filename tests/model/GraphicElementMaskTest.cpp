#include "tests/model/TestElement.h"

#include <gtest/gtest.h>

#include <limits>

namespace graphics {
namespace {

class ElementMask : public testing::Test {
protected:
  ElementMask() {
    StartForTests();
    context_.matrix = CMatrix::Scale(2, 2) * CMatrix::Translation(3, 0);
  }

  bool IsTransparent(const orlo::P<CTestElement>& element, double x, double y) {
    return element->IsTransparentAt(x, y, context_);
  }

  CPaintContext context_{nullptr, 7};
};

TEST_F(ElementMask, IsOpaqueWhereTheElementPaints) {
  const auto element = MakeElement({10, 10, 20, 10});
  EXPECT_FALSE(IsTransparent(element, 10.1, 10.1));
  EXPECT_FALSE(IsTransparent(element, 29, 19));
  EXPECT_TRUE(IsTransparent(element, 9, 15));
  EXPECT_TRUE(IsTransparent(element, 15, 21));
}

TEST_F(ElementMask, IsTransparentWhereTheElementPaintsNothing) {
  const auto element = MakeElement({10, 10, 20, 10});
  element->colour = wxColour(255, 0, 0, 9);
  EXPECT_TRUE(IsTransparent(element, 15, 15));
  element->colour = wxColour(255, 0, 0, 10);
  element->SetCenter({21, 15});
  EXPECT_FALSE(IsTransparent(element, 16, 15));
}

TEST_F(ElementMask, IsDrawnOnceForOnePlace) {
  const auto element = MakeElement({10, 10, 20, 10});
  IsTransparent(element, 15, 15);
  IsTransparent(element, 16, 15);
  element->SetCenter(element->GetCenter() + 0.00001);
  IsTransparent(element, 16, 15);
  EXPECT_EQ(element->painted, 1);
  element->SetCenter(element->GetCenter() + 1.0);
  IsTransparent(element, 16, 15);
  EXPECT_EQ(element->painted, 2);
}

TEST_F(ElementMask, IsNotDrawnForAPointOutside) {
  const auto element = MakeElement({10, 10, 20, 10});
  EXPECT_TRUE(IsTransparent(element, 0, 0));
  EXPECT_EQ(element->painted, 0);
}

TEST_F(ElementMask, LeavesTheContextAsItWas) {
  const auto element = MakeElement({10, 10, 20, 10});
  const CMatrix before = context_.matrix;
  IsTransparent(element, 15, 15);
  EXPECT_EQ(context_.matrix, before);
  EXPECT_EQ(context_.dc, nullptr);
}

TEST_F(ElementMask, LetsEverythingThroughThatIsTooLargeToDraw) {
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  for (const double side : {1e5, 1e300, kInfinity, kNaN}) {
    const auto element = MakeElement({0, 0, 1, 1});
    element->SetSize({side, side});
    EXPECT_TRUE(IsTransparent(element, 0.5, 0.5)) << side;
    EXPECT_EQ(element->painted, 0);
  }
  EXPECT_TRUE(IsTransparent(MakeElement({0, 0, 10, 10}), kNaN, kInfinity));
}

}  // namespace
}  // namespace graphics
