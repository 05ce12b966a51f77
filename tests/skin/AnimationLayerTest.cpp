#include "graphics/skin/AnimationLayer.h"
#include "tests/skin/Sources.h"

#include <gtest/gtest.h>

#include <vector>

namespace graphics::skin {

namespace {

class AnimationLayer : public testing::Test {
protected:
  void Paint(CDoubleRect rect, IAnimationSource* animations = nullptr) {
    layer_->Paint(page_.context, *page_.target, rect, nullptr, animations, nullptr);
  }
  wxRect Ink() const { return page_.Ink().bounds; }
  CDoubleSize Preferred(IAnimationSource* animations = nullptr) {
    return layer_->GetPreferredSize(*page_.target, nullptr, animations);
  }

  CLayerPage page_;
  const orlo::P<CAnimationLayer> layer_ = orlo::makeObject<CAnimationLayer>();
};

TEST_F(AnimationLayer, IsAPictureThatIsStretched) {
  EXPECT_EQ(layer_->GetLayerTypeName(), "animation");
  EXPECT_EQ(layer_->GetKindMask(), 1U);
  EXPECT_FALSE(layer_->IsDeviceScaled());
  EXPECT_TRUE(layer_->scalingEnabled);
  EXPECT_FALSE(layer_->scalingProportional);
}

TEST_F(AnimationLayer, ShowsItsOwnBitmapBeforeThatOfTheSource) {
  const auto source = orlo::makeObject<CPictures>(Filled(2, 2, kBlue));
  layer_->SetAttachmentBitmap(Filled(2, 2, kRed));
  EXPECT_EQ(layer_->GetContentBitmap(source.get()), layer_->GetAttachmentBitmap());
  EXPECT_TRUE(source->keys.empty());
}

TEST_F(AnimationLayer, AsksTheSourceForItsKeyBeforeTheProps) {
  const auto source = orlo::makeObject<CPictures>(Filled(2, 2, kBlue));
  layer_->uriProp = "cover";
  layer_->SetProp("cover", Filled(2, 2, kRed));
  EXPECT_EQ(layer_->GetContentBitmap(source.get()), &source->bitmap);
  EXPECT_EQ(source->keys, std::vector<wxString>{"cover"});
}

TEST_F(AnimationLayer, ShowsThePropOfItsKeyWhereTheSourceHasNone) {
  const auto source = orlo::makeObject<CPictures>();
  layer_->uriProp = "cover";
  layer_->SetProp("other", Filled(2, 2, kBlue));
  EXPECT_EQ(layer_->GetContentBitmap(source.get()), nullptr);
  layer_->SetProp("cover", Filled(2, 2, kRed));
  EXPECT_EQ(layer_->GetContentBitmap(source.get()), layer_->GetProps().at("cover").get());
  EXPECT_EQ(layer_->GetContentBitmap(nullptr), layer_->GetProps().at("cover").get());
}

TEST_F(AnimationLayer, DrawsNothingWithoutKeyAndSourceWhateverThePropsHold) {
  layer_->SetProp("", Filled(2, 2, kRed));
  layer_->SetProp("cover", Filled(2, 2, kRed));
  EXPECT_EQ(layer_->GetContentBitmap(nullptr), nullptr);
  Paint({0, 0, 20, 20});
  EXPECT_EQ(page_.Ink().count, 0);
}

TEST_F(AnimationLayer, FillsItsBox) {
  layer_->SetAttachmentBitmap(Filled(4, 4, kRed));
  layer_->contentMargins = {1, 2, 3, 4};
  Paint({10, 5, 30, 20});
  EXPECT_EQ(Ink(), wxRect(12, 6, 25, 15));
  EXPECT_EQ(page_.At(24, 13), kRed);
}

TEST_F(AnimationLayer, TakesSharesOfTheFreeRoomAsMargins) {
  layer_->SetAttachmentBitmap(Filled(4, 4, kRed));
  layer_->contentMargins.leftFactor = 0.5;
  Paint({10, 5, 30, 20});
  EXPECT_EQ(Ink(), wxRect(25, 5, 15, 20));
}

TEST_F(AnimationLayer, KeepsTheBordersOfItsBitmap) {
  wxBitmap bitmap = Filled(6, 6, kBlue);
  for (int y = 2; y < 4; ++y)
    for (int x = 2; x < 4; ++x) SetPixelOf(bitmap, x, y, kRed);
  layer_->SetAttachmentBitmap(bitmap);
  layer_->scaleMargins = {2, 2, 2, 2};
  Paint({0, 0, 40, 30});
  EXPECT_EQ(page_.At(1, 1), kBlue);
  EXPECT_EQ(page_.At(2, 2), kRed);
  EXPECT_EQ(page_.At(37, 27), kRed);
  EXPECT_EQ(page_.At(38, 28), kBlue);
}

TEST_F(AnimationLayer, FitsProportionallyWhereItIsAligned) {
  layer_->SetAttachmentBitmap(Filled(4, 2, kRed));
  layer_->scalingProportional = true;
  layer_->horzAlign = 1.0;
  layer_->vertAlign = 0.5;
  Paint({10, 0, 20, 30});
  EXPECT_EQ(Ink(), wxRect(10, 10, 20, 10));
  CLayerPage wide;
  layer_->Paint(wide.context, *wide.target, {0, 0, 50, 10}, nullptr, nullptr, nullptr);
  EXPECT_EQ(wide.Ink().bounds, wxRect(30, 0, 20, 10));
}

TEST_F(AnimationLayer, KeepsItsSizeWithoutScaling) {
  layer_->SetAttachmentBitmap(Filled(4, 2, kRed));
  layer_->scalingEnabled = false;
  layer_->scalingProportional = true;
  layer_->horzAlign = 0.5;
  layer_->vertAlign = 1.0;
  Paint({10, 5, 21, 10});
  EXPECT_EQ(Ink(), wxRect(18, 13, 4, 2));
}

TEST_F(AnimationLayer, DrawsNothingIntoABoxWithoutExtent) {
  layer_->SetAttachmentBitmap(Filled(4, 4, kRed));
  layer_->contentMargins.left = 25;
  Paint({10, 5, 20, 20});
  layer_->scalingProportional = true;
  Paint({10, 5, 20, 20});
  EXPECT_EQ(page_.Ink().count, 0);
}

wxBitmap WithMask(const wxColour& colour) {
  wxImage image(2, 1);
  image.SetRGB(0, 0, colour.Red(), colour.Green(), colour.Blue());
  image.SetRGB(1, 0, 1, 2, 3);
  image.SetMaskColour(1, 2, 3);
  return wxBitmap(image);
}

TEST_F(AnimationLayer, LeavesOutWhatAMaskLetsThrough) {
  const wxBitmap bitmap = WithMask(*wxRED);
  ASSERT_TRUE(bitmap.GetMask());
  layer_->SetAttachmentBitmap(bitmap);
  layer_->scalingEnabled = false;
  Paint({3, 3, 10, 10});
  EXPECT_EQ(page_.At(3, 3), kRed);
  EXPECT_EQ(page_.Ink().count, 1);
}

TEST_F(AnimationLayer, GivesTheSamePixelsWhenItIsPaintedAgain) {
  wxImage noise(23, 17);
  noise.InitAlpha();
  unsigned seed = 1;
  const auto next = [&] { return static_cast<unsigned char>((seed = seed * 1664525 + 1013904223) >> 24); };
  for (int y = 0; y < 17; ++y)
    for (int x = 0; x < 23; ++x) {
      noise.SetRGB(x, y, next(), next(), next());
      noise.SetAlpha(x, y, next());
    }
  layer_->SetAttachmentBitmap(wxBitmap(noise));
  // Smaller, larger, and with a picture that has changed in between.
  for (const CDoubleRect rect :
       {CDoubleRect{3, 2, 31, 29}, CDoubleRect{1, 4, 11, 8}, CDoubleRect{0.4, 2.6, 30.3, 9.9}}) {
    std::vector<std::vector<std::uint8_t>> painted;
    for (int time = 0; time < 4; ++time) {
      CLayerPage page;
      page.target->context->SetBrush(wxBrush(wxColour(90, 160, 30, 140)));
      page.target->context->SetPen(*wxTRANSPARENT_PEN);
      page.target->context->DrawRectangle(0, 0, 20, 40);
      layer_->Paint(page.context, *page.target, rect, nullptr, nullptr, nullptr);
      page.smooth.Flush();
      const CBitmapSurface surface(page.bitmap);
      const CPixels& pixels = surface.Pixels();
      painted.emplace_back(pixels.data, pixels.Row(pixels.height));
    }
    for (const auto& bytes : painted) EXPECT_TRUE(bytes == painted.front());
  }
}

TEST_F(AnimationLayer, IsNotMisledByANewBitmapAtAFormerAddress) {
  const auto source = orlo::makeObject<CPictures>(WithMask(*wxRED));
  layer_->scalingEnabled = false;
  Paint({3, 3, 10, 10}, source.get());
  source->bitmap = WithMask(*wxBLUE);
  Paint({3, 3, 10, 10}, source.get());
  EXPECT_EQ(page_.At(3, 3), kBlue);
  for (int i = 0; i < 100; ++i) {
    const auto other = orlo::makeObject<CPictures>(WithMask(*wxRED));
    Paint({3, 3, 10, 10}, other.get());
  }
  EXPECT_EQ(page_.At(3, 3), kRed);
}

TEST_F(AnimationLayer, WantsItsMarginsWhereItIsStretched) {
  layer_->contentMargins = {1, 2, 3, 4};
  layer_->scaleMargins = {10, 20, 30, 40};
  layer_->SetAttachmentBitmap(Filled(7, 9, kRed));
  EXPECT_EQ(Preferred(), (CDoubleSize{55, 55}));
  EXPECT_EQ(layer_->GetPreferredSizeForWidth(*page_.target, nullptr, nullptr, 33), (CDoubleSize{33, 55}));
}

TEST_F(AnimationLayer, WantsTheSizeOfItsBitmapWhereItIsNot) {
  layer_->contentMargins = {1, 2, 3, 4};
  layer_->scaleMargins = {10, 20, 30, 40};
  const auto source = orlo::makeObject<CPictures>(Filled(7, 9, kRed));
  layer_->scalingProportional = true;
  EXPECT_EQ(Preferred(source.get()), (CDoubleSize{12, 14}));
  EXPECT_EQ(Preferred(), (CDoubleSize{5, 5}));
  layer_->scalingProportional = false;
  layer_->scalingEnabled = false;
  EXPECT_EQ(Preferred(source.get()), (CDoubleSize{12, 14}));
}

}  // namespace

}  // namespace graphics::skin
