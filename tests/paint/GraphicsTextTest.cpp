#include "graphics/paint/EffectGraphicsContext.h"
#include "graphics/paint/MaskPictures.h"
#include "tests/paint/Canvas.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace graphics::test {

namespace {

class GraphicsText : public testing::Test {
protected:
  CCanvas canvas_{300, 100};
  const wxFont font_{wxFontInfo(10).FaceName("DejaVu Sans")};

private:
  CSmoothEffectDC smooth_{canvas_.dc};

protected:
  const orlo::P<TEffectGraphicsContext> context_ = smooth_.CreateEffectContext();
};

TEST_F(GraphicsText, IsMeasuredAsScalableTextOfADeviceContextIs) {
  canvas_.dc.SetScalableText(true);
  canvas_.dc.SetFont(font_);
  EXPECT_EQ(TEffectGraphicsContext::MeasureLine("AVATAR, Wolf", font_), canvas_.dc.GetTextExtent("AVATAR, Wolf"));
  EXPECT_EQ(TEffectGraphicsContext::MeasureLine("", font_), wxSize(0, 0));
  EXPECT_EQ(TEffectGraphicsContext::MeasureLine("A", wxNullFont), wxSize(0, 0));
}

TEST_F(GraphicsText, IsDrawnAsWideAsItIsMeasured) {
  for (const double scale : {0.5, 1.0, 2.3}) {
    CCanvas canvas(300, 100);
    CSmoothEffectDC smooth(canvas.dc);
    const auto context = smooth.CreateEffectContext();
    context->SetTransform(context->CreateMatrix(scale, 0, 0, scale, 0, 0));
    context->DrawLine("HHHHHHHHHH", font_, *wxBLACK, 4, 3);
    const double width = TEffectGraphicsContext::MeasureLine("HHHHHHHHHH", font_).x * scale;
    EXPECT_NEAR(canvas.Ink().bounds.width, width, 3 * scale + 1) << scale;
    EXPECT_NEAR(canvas.Ink().bounds.x, 5 * scale, scale + 1) << scale;
  }
}

TEST_F(GraphicsText, LeavesTheSurfaceAliveWhateverItsSize) {
  const double infinity = std::numeric_limits<double>::infinity();
  const wxFont huge(wxFontInfo(2000).FaceName("DejaVu Sans"));
  context_->PushState();
  context_->SetTransform(context_->CreateMatrix(9000, 0, 0, 9000, 0, 0));
  context_->DrawLine("H", huge, *wxBLACK, 0, 0);
  context_->PopState();
  context_->DrawLine("H", wxNullFont, *wxBLACK, 0, 0);
  for (const double place : {1e300, -infinity, std::nan("")}) context_->DrawLine("H", font_, *wxBLACK, place, place);
  context_->DrawLine("H", font_, *wxBLACK, 200, 50);
  EXPECT_NE(canvas_.At(201, 57).alpha + canvas_.At(202, 57).alpha, 0);
}

TEST_F(GraphicsText, IsHiddenByAClipWithoutExtent) {
  for (const double width : {0.0, -50.0, std::nan("")}) {
    context_->PushState();
    context_->Clip(60, 0, width, 50);
    context_->DrawLine("HHHHHHHHHH", font_, *wxBLACK, 0, 0);
    context_->PopState();
  }
  EXPECT_EQ(canvas_.Ink().count, 0);
}

TEST_F(GraphicsText, IsShownInAClipThatReachesBeyondEverything) {
  context_->Clip(-1e300, -1e300, 2e300, 2e300);
  context_->DrawLine("HHHH", font_, *wxBLACK, 0, 0);
  EXPECT_GT(canvas_.Ink().count, 0);
}

TEST_F(GraphicsText, IsNotDrawnOutsideOfItsClip) {
  context_->Clip(10, 0, 15, 100);
  context_->DrawLine("HHHHHHHHHH", font_, *wxBLACK, 0, 0);
  EXPECT_TRUE(wxRect(10, 0, 15, 100).Contains(canvas_.Ink().bounds));
  EXPECT_GT(canvas_.Ink().count, 0);
}

class LimitedAlpha : public testing::Test {
protected:
  static CPixel Limited(CPixel pixel, int limit) {
    wxBitmap bitmap = MakeAlphaBitmap(2, 1);
    wxBitmap mask = MakeAlphaBitmap(1, 1);
    SetPixelOf(bitmap, 0, 0, pixel);
    SetPixelOf(bitmap, 1, 0, pixel);
    SetPixelOf(mask, 0, 0, {0, 0, 0, limit});
    LimitAlpha(bitmap, mask);
    EXPECT_EQ(PixelOf(bitmap, 1, 0), kClear);
    return PixelOf(bitmap, 0, 0);
  }

private:
  CToolkitLock lock_;
};

TEST_F(LimitedAlpha, IsTheSmallerOfBoth) {
  EXPECT_EQ(Limited(kRed, 255), kRed);
  EXPECT_EQ(Limited(kRed, 100), (CPixel{100, 0, 0, 100}));
  EXPECT_EQ(Limited(kRed, 0), kClear);
  EXPECT_EQ(Limited({40, 20, 0, 80}, 200), (CPixel{40, 20, 0, 80}));
  EXPECT_EQ(Limited({40, 20, 0, 80}, 40), (CPixel{20, 10, 0, 40}));
  EXPECT_EQ(Limited(kClear, 200), kClear);
}

}  // namespace

}  // namespace graphics::test
