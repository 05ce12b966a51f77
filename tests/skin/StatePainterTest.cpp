#include "graphics/skin/AnimationLayer.h"
#include "graphics/skin/StatePainter.h"
#include "graphics/skin/TextLayer.h"
#include "tests/skin/Sources.h"

#include <gtest/gtest.h>

#include <cmath>

namespace graphics::skin {

namespace {

orlo::P<CAnimationLayer> Picture(CPixel colour) {
  const auto layer = orlo::makeObject<CAnimationLayer>();
  layer->SetAttachmentBitmap(Filled(4, 4, colour));
  return layer;
}

orlo::P<CTextLayer> CentredText() {
  const auto layer = orlo::makeObject<CTextLayer>();
  layer->font = wxFont(wxFontInfo(40).FaceName("DejaVu Sans").Bold());
  layer->color = *wxRED;
  layer->horzAlign = layer->vertAlign = 0.5;
  return layer;
}

class StatePainter : public testing::Test {
protected:
  void Paint(CDoubleRect rect, ICustomLayerPainter* painter = nullptr) {
    painter_->Paint(*state_, page_.context, *page_.target, rect, texts_.get(), nullptr, painter);
  }
  int Count(CPixel colour) const {
    int count = 0;
    for (int y = 0; y < page_.bitmap.GetHeight(); ++y)
      for (int x = 0; x < page_.bitmap.GetWidth(); ++x) count += page_.At(x, y) == colour;
    return count;
  }

  CLayerPage page_{120, 80};
  const orlo::P<CTexts> texts_ = orlo::makeObject<CTexts>(wxString::FromUTF8("\xE2\x96\xA0"));  // a square
  const orlo::P<CState> state_ = orlo::makeObject<CState>("normal");
  const orlo::P<CStatePainter> painter_ = orlo::makeObject<CStatePainter>();
};

TEST_F(StatePainter, DrawsPicturesAt300DotsPerInch) {
  state_->AddLayer(Picture(kBlue));
  Paint({10, 10, 25.4, 25.4});
  ASSERT_TRUE(painter_->GetOffscreen());
  EXPECT_EQ(painter_->GetOffscreen()->GetSize(), wxSize(300, 300));
  Paint({10, 10, 50.8, 12.7});
  EXPECT_EQ(painter_->GetOffscreen()->GetSize(), wxSize(600, 150));
}

TEST_F(StatePainter, GivesAStateTheRoomThatItWants) {
  const auto picture = Picture(kBlue);
  picture->contentMargins = {0, 400, 50, 0};
  state_->AddLayer(picture);
  Paint({10, 10, 25.4, 25.4});
  EXPECT_EQ(painter_->GetOffscreen()->GetSize(), wxSize(450, 300));
}

TEST_F(StatePainter, CoversTheWholePixelsOfTheRectangle) {
  state_->AddLayer(Picture(kBlue));
  page_.context.matrix = CMatrix::Scale(2, 1.5);
  Paint({5.3, 10, 20, 10});
  EXPECT_EQ(page_.Ink().bounds, wxRect(10, 15, 41, 16));
  EXPECT_EQ(page_.At(30, 20), kBlue);
}

TEST_F(StatePainter, TakesTheBoundingBoxOfATurnedPage) {
  state_->AddLayer(Picture(kBlue));
  page_.context.matrix = CMatrix::Rotation(std::acos(-1) / 2) * CMatrix::Translation(60, 10);
  Paint({0, 0, 30, 20});
  EXPECT_EQ(page_.Ink().bounds, wxRect(40, 10, 21, 31));
}

TEST_F(StatePainter, DrawsLayersInTheirOrder) {
  state_->AddLayer(Picture(kBlue));
  const auto upper = Picture(kRed);
  upper->contentMargins.leftFactor = 0.5;
  state_->AddLayer(upper);
  Paint({0, 0, 100, 50});
  EXPECT_EQ(page_.At(20, 20), kBlue);
  EXPECT_EQ(page_.At(80, 20), kRed);
}

TEST_F(StatePainter, DrawsTextsAbovePictures) {
  state_->AddLayer(CentredText());
  state_->AddLayer(Picture(kBlue));
  Paint({0, 0, 100, 60});
  EXPECT_GT(Count(kRed), 10);
  EXPECT_EQ(page_.At(5, 5), kBlue);
}

TEST_F(StatePainter, DrawsAllInTheirOrderInOutputMode1) {
  state_->AddLayer(CentredText());
  const auto lower = Picture(kBlue);
  lower->contentMargins.bottomFactor = 0.5;
  state_->AddLayer(lower);
  page_.context.outputMode = 1;
  Paint({0, 0, 100, 60});
  EXPECT_EQ(page_.At(99, 29), kBlue);
  EXPECT_EQ(page_.At(5, 5), kBlue);
  EXPECT_GT(Count(kRed), 10);
  for (int x = 0; x < 100; ++x) EXPECT_EQ(page_.At(x, 29), kBlue) << x;
  EXPECT_FALSE(painter_->GetOffscreen());
}

TEST_F(StatePainter, DrawsCustomLayersAmongThePictures) {
  const auto fill = orlo::makeObject<CFill>();
  state_->AddLayer(orlo::makeObject<CCustomLayer>());
  page_.context.matrix = CMatrix::Scale(2, 2);
  Paint({10, 10, 25.4, 12.7}, fill.get());
  EXPECT_EQ(fill->rects, (std::vector<CDoubleRect>{{0, 0, 300, 150}}));
  EXPECT_EQ(page_.At(30, 30), kBlue);
}

TEST_F(StatePainter, KeepsTextAtTheSizeOfThePage) {
  state_->AddLayer(CentredText());
  Paint({10, 5, 80, 60});
  const wxRect once = page_.Ink().bounds;
  CLayerPage larger(480, 320);
  larger.context.matrix = CMatrix::Scale(4, 4);
  painter_->Paint(*state_, larger.context, *larger.target, {10, 5, 80, 60}, texts_.get(), nullptr, nullptr);
  const wxRect fourTimes = larger.Ink().bounds;
  EXPECT_NEAR(fourTimes.width, 4 * once.width, 8);
  EXPECT_NEAR(fourTimes.x + fourTimes.width / 2, 4 * (once.x + once.width / 2), 6);
  EXPECT_NEAR(fourTimes.y + fourTimes.height / 2, 4 * (once.y + once.height / 2), 6);
}

TEST_F(StatePainter, GivesTextABoxOfAsManyMillimetresAsThereArePixels) {
  const auto text = CentredText();
  text->horzAlign = 0.0;
  state_->AddLayer(text);
  Paint({30, 10, 80, 60});
  EXPECT_NEAR(page_.Ink().bounds.x, 30, 3);
  CLayerPage larger(480, 320);
  larger.context.matrix = CMatrix::Scale(2, 2);
  painter_->Paint(*state_, larger.context, *larger.target, {100, 10, 80, 60}, texts_.get(), nullptr, nullptr);
  // 161 pixels are a box of 322 about the middle.
  EXPECT_NEAR(larger.Ink().bounds.x, 280.5 - 161, 5);
}

TEST_F(StatePainter, ClearsTheOffscreenBitmapThatItUsesAgain) {
  state_->AddLayer(Picture({0, 0, 100, 100}));
  Paint({0, 0, 20, 20});
  const CPixel once = page_.At(10, 10);
  const wxBitmap* const offscreen = painter_->GetOffscreen();
  CLayerPage page;
  painter_->Paint(*state_, page.context, *page.target, {0, 0, 20, 20}, nullptr, nullptr, nullptr);
  EXPECT_EQ(painter_->GetOffscreen(), offscreen);
  EXPECT_EQ(page.At(10, 10), once);
}

TEST_F(StatePainter, PassesOnWhenToPaintAgain) {
  const auto fill = orlo::makeObject<CFill>();
  state_->AddLayer(orlo::makeObject<CCustomLayer>());
  Paint({0, 0, 20, 20}, fill.get());
  EXPECT_EQ(page_.context.nextRepaint, 0);
  fill->repaint = 250;
  Paint({0, 0, 20, 20}, fill.get());
  EXPECT_EQ(page_.context.nextRepaint, 250);
  page_.context.nextRepaint = -5;
  Paint({0, 0, 20, 20}, fill.get());
  EXPECT_EQ(page_.context.nextRepaint, -5);
}

TEST_F(StatePainter, DrawsOnThePageItselfWhatIsTooLargeForABitmap) {
  const auto fill = orlo::makeObject<CFill>(*wxGREEN);
  const auto picture = Picture(kBlue);
  picture->contentMargins.rightFactor = 0.5;
  state_->AddLayer(picture);
  const auto custom = orlo::makeObject<CCustomLayer>();
  state_->AddLayer(custom);
  page_.context.matrix = CMatrix::Scale(0.1, 0.1);
  fill->repaint = 30;
  Paint({100, 100, 1000, 500}, fill.get());
  EXPECT_FALSE(painter_->GetOffscreen());
  EXPECT_EQ(page_.Ink().bounds, wxRect(10, 10, 101, 51));
  EXPECT_EQ(page_.At(50, 30), kGreen);
  EXPECT_EQ(page_.context.nextRepaint, 30);
}

TEST_F(StatePainter, DrawsPicturesAlikeWithAndWithoutABitmap) {
  constexpr double kScale = 0.6, kLarger = 1.1;
  const auto picture = Picture(kBlue);
  picture->contentMargins = {10, 50, 0, 20};
  state_->AddLayer(picture);
  CLayerPage bitmap(120, 80), direct(120, 80);
  bitmap.context.matrix = CMatrix::Scale(kScale, kScale);
  painter_->Paint(*state_, bitmap.context, *bitmap.target, {0, 0, 200, 130}, nullptr, nullptr, nullptr);
  ASSERT_TRUE(painter_->GetOffscreen());
  picture->contentMargins = {10 * kLarger, 50 * kLarger, 0, 20 * kLarger};
  direct.context.matrix = CMatrix::Scale(kScale / kLarger, kScale / kLarger);
  painter_->Paint(*state_, direct.context, *direct.target, {0, 0, 200 * kLarger, 130 * kLarger}, nullptr, nullptr,
                  nullptr);
  ASSERT_FALSE(painter_->GetOffscreen());
  for (int y = 3; y < 76; y += 3)
    for (int x = 5; x < 119; x += 3) EXPECT_EQ(bitmap.At(x, y), direct.At(x, y)) << x << ' ' << y;
}

TEST_F(StatePainter, DrawsNoPicturesWithoutAPixelForThem) {
  state_->AddLayer(Picture(kBlue));
  Paint({10, 10, 0.05, 20});
  Paint({10, 10, -30, -20});
  EXPECT_EQ(page_.Ink().count, 0);
}

TEST_F(StatePainter, SurvivesRectanglesOfAnySize) {
  const auto picture = Picture(kBlue);
  picture->scaleMargins = {1e300, 1, -1e300, 1};
  state_->AddLayer(picture);
  state_->AddLayer(Picture(kBlue));
  state_->AddLayer(CentredText());
  const auto custom = orlo::makeObject<CCustomLayer>();
  custom->contentMargins.leftFactor = 1e300;
  state_->AddLayer(custom);
  for (const double size : {1e5, 1e9, 1e300, 0.001, -1e9, std::nan("")})
    for (const double place : {0.0, -1e9, 1e300}) Paint({place, place, size, size});
  CLayerPage page;
  page_.target->DrawBitmap(Filled(4, 4, kGreen), 0, 0, 4, 4);
  EXPECT_EQ(page_.At(1, 1), kGreen);
}

TEST_F(StatePainter, GoesThroughAnAlphaMask) {
  page_.target->alphaMask = true;
  state_->AddLayer(Picture(kBlue));
  Paint({10, 10, 40, 40});
  EXPECT_EQ(page_.At(30, 30), kWhite);
}

}  // namespace

}  // namespace graphics::skin
