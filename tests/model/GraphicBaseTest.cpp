#include "graphics/model/GraphicBase.h"
#include "graphics/model/GraphicListener.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace graphics {
namespace {

class CCountingListener : public IGraphicListener {
public:
  void OnGraphicChanged(CGraphicBase& element) override {
    ++count;
    last = &element;
  }

  int count = 0;
  CGraphicBase* last = nullptr;
};

double RotationAfter(double degrees) {
  CGraphicBase base;
  base.SetRotation(degrees);
  return base.GetRotation();
}

TEST(GraphicBase, IsVisibleUnmirroredAndWithoutPlaceWhenNew) {
  const CGraphicBase base;
  EXPECT_EQ(base.GetCenter(), CDoublePoint(0, 0));
  EXPECT_EQ(base.GetSize(), CDoubleSize());
  EXPECT_EQ(base.GetName(), "");
  EXPECT_EQ(base.GetText(), "");
  EXPECT_EQ(base.GetRotation(), 0);
  EXPECT_EQ(base.GetFlags(), 1U);
  EXPECT_FALSE(base.GetMirror(0));
  EXPECT_FALSE(base.GetMirror(1));
  EXPECT_TRUE(base.IsVisible());
  EXPECT_EQ(base.GetCursorHint(), -1);
  EXPECT_FALSE(base.IsContentEmpty());
}

TEST(GraphicBase, KeepsWholeDegreesFrom0To360) {
  EXPECT_EQ(RotationAfter(360.9), 360);
  EXPECT_EQ(RotationAfter(-0.5), 0);
  EXPECT_EQ(RotationAfter(-90), 270);
  EXPECT_EQ(RotationAfter(721), 1);
  EXPECT_EQ(RotationAfter(360), 360);
  EXPECT_EQ(RotationAfter(720), 360);
  EXPECT_EQ(RotationAfter(361), 1);
  EXPECT_EQ(RotationAfter(-360), 0);
  EXPECT_EQ(RotationAfter(-1), 359);
  EXPECT_EQ(RotationAfter(12.9), 12);
}

TEST(GraphicBase, KeepsItsRotationInRangeForAnyNumber) {
  for (const double degrees : {1e300, -1e300, std::numeric_limits<double>::infinity(),
                               -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
    const double rotation = RotationAfter(degrees);
    EXPECT_GE(rotation, 0);
    EXPECT_LE(rotation, 360);
  }
}

TEST(GraphicBase, IsPlacedByItsTopLeftThroughItsSize) {
  CGraphicBase base;
  base.SetSize({4, 6});
  base.SetTopLeft(10, 20);
  EXPECT_EQ(base.GetCenter(), CDoublePoint(12, 23));
  EXPECT_EQ(base.GetTopLeft(), CDoublePoint(10, 20));
}

TEST(GraphicBase, IsBoundedByTheBoxOfItsRotatedFrame) {
  CGraphicBase base;
  base.SetCenter({10, 10});
  base.SetSize({4, 2});
  EXPECT_EQ(base.GetBoundingRect(), (CDoubleRect{8, 9, 4, 2}));
  base.SetRotation(90);
  EXPECT_TRUE(base.GetBoundingRect().IsNear({9, 8, 2, 4}, 1e-9));
  base.SetRotation(45);
  const double side = (4 + 2) * std::sqrt(0.5);
  EXPECT_TRUE(base.GetBoundingRect().IsNear(CDoubleRect::FromCenter({10, 10}, {side, side}), 1e-9));
}

TEST(GraphicBase, SwapsWidthAndHeightOfABoundingSizeAt90And270Degrees) {
  for (const double degrees : {90.0, 270.0}) {
    CGraphicBase base;
    base.SetRotation(degrees);
    base.SetBoundingSize({8, 3});
    EXPECT_NEAR(base.GetSize().width, 3, 1e-9);
    EXPECT_NEAR(base.GetSize().height, 8, 1e-9);
  }
  CGraphicBase upsideDown;
  upsideDown.SetRotation(180);
  upsideDown.SetBoundingSize({8, 3});
  EXPECT_NEAR(upsideDown.GetSize().width, 8, 1e-9);
  EXPECT_NEAR(upsideDown.GetSize().height, 3, 1e-9);
}

TEST(GraphicBase, GrowsAtAnAngleAsItsBoundingBoxDoes) {
  CGraphicBase base;
  base.SetSize({40, 20});
  base.SetRotation(30);
  const CDoubleSize box = base.GetBoundingSize();
  base.SetBoundingSize({box.width * 2, box.height * 2});
  EXPECT_NEAR(base.GetSize().width, 80, 1e-9);
  EXPECT_NEAR(base.GetSize().height, 40, 1e-9);
}

TEST(GraphicBase, NeverGetsBelow1AtAnAngle) {
  for (const CDoubleSize wanted : {CDoubleSize{0, 0}, CDoubleSize{1e-9, 5}, CDoubleSize{0.1, 0.1}}) {
    CGraphicBase base;
    base.SetSize({40, 20});
    base.SetRotation(45);
    base.SetBoundingSize(wanted);
    EXPECT_GE(base.GetSize().width, 1);
    EXPECT_GE(base.GetSize().height, 1);
  }
}

TEST(GraphicBase, MapsTheUnitSquareOntoItsBounds) {
  CGraphicBase base;
  base.SetCenter({10, 10});
  base.SetSize({4, 2});
  EXPECT_EQ(base.GetBoundingMatrix().MapRect({0, 0, 1, 1}), base.GetBoundingRect());
}

TEST(GraphicBase, MapsItsCentredFrameToItsPlaceTurned) {
  CGraphicBase base;
  base.SetCenter({10, 10});
  base.SetSize({4, 2});
  base.SetRotation(90);
  const CDoublePoint corner = base.GetElementMatrix().MapPoint({2, 1});
  EXPECT_NEAR(corner.x, 9, 1e-9);
  EXPECT_NEAR(corner.y, 12, 1e-9);
}

TEST(GraphicBase, MovesAndScalesThroughAMatrix) {
  CGraphicBase base;
  base.SetCenter({10, 10});
  base.SetSize({4, 2});
  base.Transform(CMatrix::Scale(2, 3) * CMatrix::Translation(1, 0));
  EXPECT_EQ(base.GetCenter(), CDoublePoint(21, 30));
  EXPECT_EQ(base.GetSize(), (CDoubleSize{8, 6}));
}

TEST(GraphicBase, SetsItsFlagOneWithoutTouchingTheOthers) {
  CGraphicBase base;
  base.SetFlags(0x35);
  EXPECT_FALSE(base.GetFlag1());
  base.SetFlag1(true);
  EXPECT_EQ(base.GetFlags(), 0x37U);
  EXPECT_TRUE(base.GetFlag1());
  base.SetFlag1(false);
  EXPECT_EQ(base.GetFlags(), 0x35U);
  EXPECT_TRUE(base.HasFlag(5));
  EXPECT_FALSE(base.HasFlag(3));
}

TEST(GraphicBase, TellsItsListenersOfPlaceSizeAndRotation) {
  CGraphicBase base;
  CCountingListener listener;
  base.AddListener(&listener);
  base.SetCenter({1, 1});
  base.SetSize({1, 1});
  base.SetRotation(10);
  EXPECT_EQ(listener.count, 3);
  EXPECT_EQ(listener.last, &base);
}

TEST(GraphicBase, TellsNobodyOfMirrorFlagsNameAndVisibility) {
  CGraphicBase base;
  CCountingListener listener;
  base.AddListener(&listener);
  base.SetMirror(0, true);
  base.SetFlags(7);
  base.SetName("name");
  base.SetVisible(false);
  EXPECT_EQ(listener.count, 0);
}

TEST(GraphicBase, ForgetsAListenerThatWasAddedTwiceAltogether) {
  CGraphicBase base;
  CCountingListener twice;
  CCountingListener once;
  base.AddListener(&twice);
  base.AddListener(&once);
  base.AddListener(&twice);
  base.NotifyChanged();
  EXPECT_EQ(twice.count, 2);
  base.RemoveListener(&twice);
  base.NotifyChanged();
  EXPECT_EQ(twice.count, 2);
  EXPECT_EQ(once.count, 2);
}

}  // namespace
}  // namespace graphics
