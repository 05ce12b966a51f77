#include "graphics/paint/MaskPictures.h"
#include "tests/paint/Canvas.h"

#include <gtest/gtest.h>
#include <wx/image.h>

namespace graphics::test {

namespace {

/// Four pixels in a row: opaque, half, nearly transparent and transparent blue.
wxBitmap BlueFading() {
  wxBitmap bitmap = MakeAlphaBitmap(4, 1);
  SetPixelOf(bitmap, 0, 0, {0, 0, 255, 255});
  SetPixelOf(bitmap, 1, 0, {0, 0, 128, 128});
  SetPixelOf(bitmap, 2, 0, {0, 0, 10, 10});
  return bitmap;
}

/// Two opaque pixels, the right one masked out.
wxBitmap WithMask() {
  wxImage image(2, 1);
  image.SetRGB(0, 0, 10, 20, 30);
  image.SetRGB(1, 0, 1, 1, 1);
  image.SetMaskColour(1, 1, 1);
  return wxBitmap(image);
}

wxBitmap Opaque(int width, int height) {
  return wxBitmap(wxImage(width, height));
}

}  // namespace

TEST(AlphaMask, TurnsTextBrushAndPenWhite) {
  CCanvas canvas;
  canvas.dc.SetAlphaMask(true);
  EXPECT_TRUE(canvas.dc.IsAlphaMask());
  EXPECT_EQ(canvas.dc.GetTextForeground(), *wxWHITE);
  EXPECT_EQ(canvas.dc.GetBrush().GetColour(), *wxWHITE);
  EXPECT_EQ(canvas.dc.GetBrush().GetStyle(), wxBRUSHSTYLE_SOLID);
  EXPECT_EQ(canvas.dc.GetPen().GetColour(), *wxWHITE);
  EXPECT_EQ(canvas.dc.GetPen().GetWidth(), 1);
}

TEST(AlphaMask, DrawsEveryColourWhiteAndKeepsWidthAndStyle) {
  CCanvas canvas;
  canvas.dc.SetAlphaMask(true);
  canvas.dc.SetPen(wxPen(*wxRED, 3, wxPENSTYLE_DOT));
  canvas.dc.SetBrush(wxBrush(*wxRED, wxBRUSHSTYLE_TRANSPARENT));
  canvas.dc.SetTextForeground(*wxRED);
  EXPECT_EQ(canvas.dc.GetPen().GetColour(), *wxWHITE);
  EXPECT_EQ(canvas.dc.GetPen().GetWidth(), 3);
  EXPECT_EQ(canvas.dc.GetPen().GetStyle(), wxPENSTYLE_DOT);
  EXPECT_EQ(canvas.dc.GetBrush().GetStyle(), wxBRUSHSTYLE_TRANSPARENT);
  EXPECT_EQ(canvas.dc.GetTextForeground(), *wxWHITE);
}

TEST(AlphaMask, TurnedOffLeavesTheToolsAsTheyAre) {
  CCanvas canvas;
  canvas.dc.SetAlphaMask(true);
  canvas.dc.SetAlphaMask(false);
  EXPECT_EQ(canvas.dc.GetPen().GetColour(), *wxWHITE);
  EXPECT_EQ(canvas.dc.GetTextForeground(), *wxWHITE);
  canvas.dc.SetPen(wxPen(*wxRED));
  EXPECT_EQ(canvas.dc.GetPen().GetColour(), *wxRED);
}

TEST(AlphaMask, AContextOnTopDrawsWhiteAtOnce) {
  CCanvas canvas;
  canvas.dc.SetAlphaMask(true);
  CSmoothEffectDC smooth(canvas.dc);
  EXPECT_TRUE(smooth.IsAlphaMask());
  smooth.DrawRectangle(0, 0, 5, 5);
  smooth.SetBrush(*wxRED_BRUSH);
  smooth.DrawRectangle(10, 0, 5, 5);
  smooth.Flush();
  EXPECT_EQ(canvas.At(2, 2), kWhite);
  EXPECT_EQ(canvas.At(12, 2), kWhite);
}

TEST(AlphaMask, ABitmapWithAlphaIsDrawnAsGreysOfItsAlpha) {
  CCanvas canvas;
  canvas.dc.SetAlphaMask(true);
  canvas.dc.DrawBitmap(BlueFading(), 10, 10);
  EXPECT_EQ(canvas.At(10, 10), kWhite);
  EXPECT_EQ(canvas.At(11, 10), (CPixel{64, 64, 64, 128}));
  EXPECT_EQ(canvas.At(12, 10), (CPixel{0, 0, 0, 10}));
  EXPECT_EQ(canvas.At(13, 10), kClear);
}

TEST(AlphaMask, ABitmapWithAMaskIsDrawnBlackAndWhiteWithNothingBetween) {
  CCanvas canvas;
  canvas.dc.SetAlphaMask(true);
  canvas.dc.DrawBitmap(WithMask(), 10, 10, true);
  EXPECT_EQ(canvas.At(10, 10), kWhite);
  EXPECT_EQ(canvas.At(11, 10), kBlack);
}

TEST(AlphaMask, AnOpaqueBitmapIsAWhiteRectangleAtItsPlace) {
  CCanvas canvas;
  canvas.dc.SetAlphaMask(true);
  canvas.dc.DrawBitmap(Opaque(6, 4), 10, 10);
  EXPECT_EQ(canvas.Ink().bounds, wxRect(10, 10, 6, 4));
  EXPECT_EQ(canvas.At(12, 12), kWhite);
}

TEST(AlphaMask, AlphaOfTheMaskDecidesAtTheThreshold) {
  const CToolkitLock lock;
  wxImage image(3, 1);
  image.InitAlpha();
  image.SetAlpha(0, 0, 127);
  image.SetAlpha(1, 0, 128);
  image.SetAlpha(2, 0, 255);
  EXPECT_TRUE(image.IsTransparent(0, 0, 128));
  EXPECT_FALSE(image.IsTransparent(1, 0, 128));
  const wxBitmap picture = BlackAndWhiteOf(wxBitmap(image));
  const wxImage result = picture.ConvertToImage();
  EXPECT_EQ(result.GetRed(0, 0), 0);
  EXPECT_EQ(result.GetRed(1, 0), 255);
  EXPECT_EQ(result.GetRed(2, 0), 255);
}

class EffectContext : public testing::Test {
protected:
  EffectContext() : smooth_(canvas_.dc), context_(smooth_.CreateEffectContext()) {}

  void MaskAlpha() { context_->alphaMask = true; }

  CCanvas canvas_;
  CSmoothEffectDC smooth_;
  orlo::P<TEffectGraphicsContext> context_;
};

TEST_F(EffectContext, TakesTheAlphaMaskOfItsDeviceContext) {
  EXPECT_FALSE(context_->alphaMask);
  smooth_.SetAlphaMask(true);
  EXPECT_TRUE(smooth_.CreateEffectContext()->alphaMask);
}

TEST_F(EffectContext, ScalesABitmapIntoItsPlace) {
  wxBitmap blue = MakeAlphaBitmap(2, 2);
  for (int y = 0; y < 2; ++y)
    for (int x = 0; x < 2; ++x) SetPixelOf(blue, x, y, kBlue);
  context_->DrawBitmap(blue, 10, 10, 8, 6);
  EXPECT_EQ(canvas_.Ink().bounds, wxRect(10, 10, 8, 6));
  EXPECT_EQ(canvas_.At(10, 10), kBlue);
  EXPECT_EQ(canvas_.At(17, 15), kBlue);
}

TEST_F(EffectContext, DrawsABitmapWithAlphaAsWhiteUnderTheSameAlpha) {
  MaskAlpha();
  context_->DrawBitmap(BlueFading(), 10, 10, 4, 1);
  EXPECT_EQ(canvas_.At(10, 10), kWhite);
  EXPECT_EQ(canvas_.At(11, 10), (CPixel{128, 128, 128, 128}));
  EXPECT_EQ(canvas_.At(12, 10), (CPixel{10, 10, 10, 10}));
  EXPECT_EQ(canvas_.At(13, 10), kClear);
}

TEST_F(EffectContext, DrawsABitmapWithAMaskBlackAndWhite) {
  MaskAlpha();
  context_->DrawBitmap(WithMask(), 10, 10, 2, 1);
  EXPECT_EQ(canvas_.At(10, 10), kWhite);
  EXPECT_EQ(canvas_.At(11, 10), kBlack);
}

TEST_F(EffectContext, TheWhiteRectangleStartsOneUnitLeftOfAndAboveThePlace) {
  MaskAlpha();
  context_->DrawBitmap(Opaque(6, 4), 10, 10, 6, 4);
  EXPECT_EQ(canvas_.Ink().bounds.GetTopLeft(), wxPoint(9, 9));
  EXPECT_EQ(canvas_.At(9, 9), kWhite);
  EXPECT_EQ(canvas_.At(15, 13), kWhite);
  EXPECT_EQ(canvas_.At(16, 14), kClear);
}

TEST_F(EffectContext, SurvivesPlacesAndMatricesThatNothingFitsInto) {
  const double infinity = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const wxBitmap bitmap = BlueFading();
  context_->DrawBitmap(bitmap, 0, 0, 0, 5);
  context_->DrawBitmap(bitmap, nan, 0, 5, 5);
  context_->DrawBitmap(bitmap, 0, 0, infinity, 5);
  context_->DrawBitmap(bitmap, 1e300, -1e300, 5, 5);
  context_->PushState();
  context_->SetTransform(context_->CreateMatrix(0, 0, 0, 0, 0, 0));
  context_->DrawBitmap(bitmap, 0, 0, 5, 5);
  context_->PopState();
  context_->PushState();
  context_->SetTransform(context_->CreateMatrix(nan, 0, 0, 1, 0, 0));
  context_->DrawBitmap(bitmap, 0, 0, 5, 5);
  context_->PopState();
  EXPECT_EQ(canvas_.Ink().count, 0);
  context_->DrawBitmap(bitmap, 0, 0, 4, 1);
  EXPECT_EQ(canvas_.At(0, 0), kBlue);
}

TEST_F(EffectContext, TheSurfaceStaysUsableAfterTextAndBitmapsAtSenselessScales) {
  const wxBitmap large = MakeAlphaBitmap(4000, 3000);
  const wxFont font(wxFontInfo(100).FaceName("DejaVu Sans"));
  for (const CDoublePoint scale : {CDoublePoint(60, 60), {10, 0.01}, {0.0001, 0.0001}, {9999, 9999}, {1e300, 1e-300}}) {
    context_->PushState();
    context_->SetTransform(context_->CreateMatrix(scale.x, 0, 0, scale.y, 0, 0));
    smooth_.SetFont(font);
    smooth_.DrawText("Text", 0, 0);
    smooth_.DrawRotatedText("Text", 0, 0, 45);
    context_->DrawBitmap(large, 0, 0, 1.0 / 256, 1.0 / 256);
    context_->DrawBitmap(large, 0, 0, 1e6, 1e6);
    context_->PopState();
  }
  smooth_.SetPen(*wxTRANSPARENT_PEN);
  smooth_.SetBrush(*wxBLUE_BRUSH);
  smooth_.DrawRectangle(0, 0, 60, 40);
  EXPECT_EQ(canvas_.At(59, 39), kBlue);
  smooth_.SetTextForeground(*wxRED);
  smooth_.DrawText("TTTT", 0, -60);
  int red = 0;
  for (int y = 0; y < 40; ++y)
    for (int x = 0; x < 60; ++x) red += canvas_.At(x, y) == kRed;
  EXPECT_GT(red, 40);
}

TEST_F(EffectContext, ForwardsTransformStateAndClipping) {
  const wxBitmap bitmap = BlueFading();
  context_->PushState();
  context_->Clip(0, 0, 20, 40);
  context_->SetTransform(context_->CreateMatrix(1, 0, 0, 1, 18, 5));
  EXPECT_TRUE(context_->GetTransform().IsEqual(context_->CreateMatrix(1, 0, 0, 1, 18, 5)));
  context_->DrawBitmap(bitmap, 0, 0, 4, 1);
  EXPECT_EQ(canvas_.Ink().bounds, wxRect(18, 5, 2, 1));
  context_->ResetClip();
  context_->PopState();
  context_->DrawBitmap(bitmap, 0, 0, 4, 1);
  EXPECT_EQ(canvas_.At(0, 0), kBlue);
}

TEST(MergeAlphaMask, TakesColoursOfTheOneAndRedOfTheOtherAsAlpha) {
  const CToolkitLock lock;
  wxBitmap colour = MakeAlphaBitmap(3, 1);
  wxBitmap mask = MakeAlphaBitmap(3, 1);
  SetPixelOf(colour, 0, 0, kBlue);
  SetPixelOf(colour, 1, 0, kBlue);
  SetPixelOf(colour, 2, 0, {0, 0, 100, 100});
  SetPixelOf(mask, 0, 0, {128, 7, 9, 255});
  SetPixelOf(mask, 2, 0, {100, 100, 100, 100});
  const wxBitmap merged = MergeAlphaMask(colour, mask, 255);
  EXPECT_EQ(PixelOf(merged, 0, 0), (CPixel{0, 0, 128, 128}));
  EXPECT_EQ(PixelOf(merged, 1, 0), kClear);
  EXPECT_EQ(PixelOf(merged, 2, 0), (CPixel{0, 0, 100, 100}));
}

TEST(MergeAlphaMask, CutsAlphaToTheLimit) {
  const CToolkitLock lock;
  wxBitmap colour = MakeAlphaBitmap(1, 1);
  wxBitmap mask = MakeAlphaBitmap(1, 1);
  SetPixelOf(colour, 0, 0, kRed);
  SetPixelOf(mask, 0, 0, kWhite);
  EXPECT_EQ(PixelOf(MergeAlphaMask(colour, mask, 100), 0, 0), (CPixel{100, 0, 0, 100}));
}

TEST(MergeAlphaMask, GivesTheSamePictureAsDrawingTextOnce) {
  CCanvas colour, mask;
  mask.dc.SetAlphaMask(true);
  for (CCanvas* canvas : {&colour, &mask}) {
    canvas->dc.SetFont(wxFont(wxFontInfo(12).FaceName("DejaVu Sans")));
    canvas->dc.SetTextForeground(*wxRED);
    canvas->dc.DrawText("Text", 2, 2);
  }
  const wxBitmap merged = MergeAlphaMask(colour.bitmap, mask.bitmap, 255);
  ASSERT_GT(InkOf(merged).count, 50);
  for (int y = 0; y < 40; ++y)
    for (int x = 0; x < 60; ++x) EXPECT_NEAR(PixelOf(merged, x, y).red, colour.At(x, y).red, 1);
}

}  // namespace graphics::test
