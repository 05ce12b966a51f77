#include "graphics/skin/AnimationLayer.h"
#include "graphics/skin/CustomLayer.h"
#include "graphics/skin/ShapeSkin.h"
#include "tests/skin/Sources.h"

#include <gtest/gtest.h>

namespace graphics::skin {

namespace {

/// A shape that covers its right half, a share of alpha strong.
orlo::P<CSkin> RightHalf(int alpha = 255) {
  const auto picture = orlo::makeObject<CAnimationLayer>();
  picture->SetAttachmentBitmap(Filled(2, 2, {0, 0, 0, alpha}));
  picture->contentMargins.leftFactor = 0.5;
  const auto shape = orlo::makeObject<CShapeSkin>("half");
  shape->FindState("normal")->AddLayer(picture);
  return shape;
}

class CustomLayer : public testing::Test {
protected:
  void Paint(CDoubleRect rect, ICustomLayerPainter* painter) {
    layer_->Paint(page_.context, *page_.target, rect, nullptr, nullptr, painter);
  }

  CLayerPage page_;
  const orlo::P<CFill> fill_ = orlo::makeObject<CFill>();
  const orlo::P<CCustomLayer> layer_ = orlo::makeObject<CCustomLayer>();
};

TEST_F(CustomLayer, IsNeitherPictureNorText) {
  EXPECT_EQ(layer_->GetLayerTypeName(), "custom");
  EXPECT_EQ(layer_->GetKindMask(), 4U);
  EXPECT_FALSE(layer_->IsDeviceScaled());
}

TEST_F(CustomLayer, DrawsNothingWithoutAPainter) {
  Paint({5, 5, 20, 10}, nullptr);
  page_.context.viewMode = 1;
  Paint({5, 5, 20, 10}, nullptr);
  EXPECT_EQ(page_.Ink().count, 0);
}

TEST_F(CustomLayer, ShowsAPlaceholderInViewMode2) {
  page_.context.viewMode = 2;
  layer_->contentMargins.left = 3;
  layer_->id = "clock";
  Paint({5, 5, 50, 30}, nullptr);
  EXPECT_EQ(page_.At(8, 20), kBlack);
  EXPECT_EQ(page_.At(50, 30), kRed);
  EXPECT_EQ(page_.At(6, 20), kClear);
  EXPECT_NE(page_.At(12, 15), kRed);
}

TEST_F(CustomLayer, IsDrawnByItsPainterInTheWholeRectangle) {
  layer_->id = "clock";
  layer_->contentMargins.left = 3;
  Paint({5, 5, 20, 10}, fill_.get());
  EXPECT_EQ(fill_->ids, std::vector<wxString>{"clock"});
  EXPECT_EQ(fill_->rects, (std::vector<CDoubleRect>{{5, 5, 20, 10}}));
  EXPECT_EQ(page_.At(5, 5), kBlue);
}

TEST_F(CustomLayer, IsCutToItsShape) {
  layer_->SetShape(RightHalf());
  page_.context.matrix = CMatrix::Scale(3, 3);
  Paint({10, 5, 20, 10}, fill_.get());
  EXPECT_EQ(page_.Ink().bounds, wxRect(20, 5, 10, 10));
  EXPECT_EQ(page_.At(25, 10), kBlue);
  EXPECT_EQ(fill_->rects, (std::vector<CDoubleRect>{{0, 0, 20, 10}}));
  EXPECT_EQ(fill_->matrices[0], CMatrix::Identity());
}

TEST_F(CustomLayer, IsAsFaintAsItsShapeAtMost) {
  layer_->SetShape(RightHalf(100));
  Paint({10, 5, 20, 10}, fill_.get());
  EXPECT_EQ(page_.At(25, 10), (CPixel{0, 0, 100, 100}));
  CLayerPage page;
  const auto faint = orlo::makeObject<CFill>(wxColour(0, 0, 255, 51));
  layer_->Paint(page.context, *page.target, {10, 5, 20, 10}, nullptr, nullptr, faint.get());
  EXPECT_EQ(page.At(25, 10), (CPixel{0, 0, 51, 51}));
}

TEST_F(CustomLayer, KeepsItsShapeUntilItsSizeChanges) {
  const auto shape = RightHalf();
  layer_->SetShape(shape);
  Paint({10, 5, 20, 10}, fill_.get());
  const auto cover = orlo::makeObject<CAnimationLayer>();
  cover->SetAttachmentBitmap(Filled(2, 2, kBlack));
  shape->FindState("normal")->AddLayer(cover);
  Paint({30, 5.5, 20.9, 10.9}, fill_.get());
  EXPECT_EQ(page_.At(35, 10), kClear);
  Paint({30, 5, 21, 10}, fill_.get());
  EXPECT_EQ(page_.At(35, 10), kBlue);
}

TEST_F(CustomLayer, IsNothingWhereItsShapeHasNoNormalState) {
  const auto shape = orlo::makeObject<CShapeSkin>("");
  const auto store = orlo::makeObject<CBase64Resources>();
  shape->ReadFromXml(*ParseXml(R"(<shape><states><normal name="calm"/></states></shape>)")->GetRoot(), *store);
  layer_->SetShape(shape);
  Paint({10, 5, 20, 10}, fill_.get());
  EXPECT_EQ(page_.Ink().count, 0);
}

TEST_F(CustomLayer, TellsWhenItsPainterWantsToPaintAgain) {
  layer_->SetShape(RightHalf());
  fill_->repaint = 40;
  Paint({10, 5, 20, 10}, fill_.get());
  EXPECT_EQ(page_.context.nextRepaint, 40);
  page_.context.nextRepaint = -1;
  Paint({10, 5, 20, 10}, fill_.get());
  EXPECT_EQ(page_.context.nextRepaint, -1);
}

TEST_F(CustomLayer, DrawsNothingWithAShapeOfNoSizeOrTooLarge) {
  layer_->SetShape(RightHalf());
  for (const CDoubleRect& rect : {CDoubleRect{5, 5, 0.5, 10}, CDoubleRect{5, 5, -20, 10}, CDoubleRect{5, 5, 1e9, 10},
                                  CDoubleRect{5, 5, 5000, 5000}})
    Paint(rect, fill_.get());
  EXPECT_EQ(page_.Ink().count, 0);
}

TEST_F(CustomLayer, WantsItsMargins) {
  layer_->contentMargins = {1, 2, 3, 4};
  EXPECT_EQ(layer_->GetPreferredSize(*page_.target, nullptr, nullptr), (CDoubleSize{5, 5}));
  EXPECT_EQ(layer_->GetPreferredSizeForWidth(*page_.target, nullptr, nullptr, 9), (CDoubleSize{9, 5}));
}

}  // namespace

}  // namespace graphics::skin
