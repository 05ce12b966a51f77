#include "foundation/Error.h"
#include "graphics/paint/native/BitmapPixels.h"
#include "graphics/paint/native/NativeState.h"
#include "tests/paint/Canvas.h"

#include <gtest/gtest.h>

#include <string>

namespace graphics::test {

namespace {

std::string MessageOf(int width, int height) {
  try {
    MakeAlphaBitmap(width, height);
  } catch (const orlo::CError& error) {
    return error.what();
  }
  return {};
}

}  // namespace

TEST(AlphaBitmap, IsClearedAndHasAlpha) {
  const CToolkitLock lock;
  const wxBitmap bitmap = MakeAlphaBitmap(7, 5);
  EXPECT_TRUE(bitmap.HasAlpha());
  EXPECT_EQ(InkOf(bitmap).count, 0);
}

TEST(AlphaBitmap, NamesTheLimitThatASizeIsBeyond) {
  const CToolkitLock lock;
  EXPECT_EQ(MessageOf(0, 5), "A bitmap must have at least one pixel");
  EXPECT_EQ(MessageOf(5, -1), "A bitmap must have at least one pixel");
  EXPECT_EQ(MessageOf(32768, 1), "A bitmap may be at most 32767 pixels wide and high");
  EXPECT_EQ(MessageOf(32767, 32767), "A bitmap may have at most 268435456 pixels");
}

TEST(BitmapSurface, IsTheMemoryThatIsDrawnOn) {
  CCanvas canvas(20, 10);
  const CBitmapSurface surface(canvas.bitmap);
  const CPixels before = surface.Pixels();
  canvas.dc.SetPen(*wxTRANSPARENT_PEN);
  canvas.dc.SetBrush(wxBrush(wxColour(10, 20, 30)));
  canvas.dc.DrawRectangle(3, 2, 1, 1);
  surface.Flush();
  const CPixels after = CBitmapSurface(canvas.bitmap).Pixels();
  EXPECT_EQ(before.data, after.data);
  EXPECT_EQ(before.width, 20);
  EXPECT_EQ(before.height, 10);
  EXPECT_GE(before.stride, 80);
  const std::uint8_t* const pixel = before.Row(2) + 12;
  EXPECT_EQ(pixel[0], 30);
  EXPECT_EQ(pixel[1], 20);
  EXPECT_EQ(pixel[2], 10);
  EXPECT_EQ(pixel[3], 255);
}

TEST(BitmapSurface, KeepsTheMemoryWhenTheBitmapGoes) {
  const CToolkitLock lock;
  CBitmapSurface surface;
  EXPECT_FALSE(surface.IsOk());
  {
    wxBitmap bitmap = MakeAlphaBitmap(4, 4);
    SetPixelOf(bitmap, 1, 1, kRed);
    surface = CBitmapSurface(bitmap);
  }
  ASSERT_TRUE(surface.IsOk());
  EXPECT_EQ(surface.Pixels().Row(1)[6], 255);
}

TEST(BitmapSurface, OfABitmapWithoutAlphaIsNotOk) {
  const CToolkitLock lock;
  EXPECT_FALSE(CBitmapSurface(wxBitmap(4, 4, 24)).IsOk());
  EXPECT_FALSE(CBitmapSurface(wxBitmap()).IsOk());
}

TEST(NativeState, NearestInterpolationKeepsPixelsAndEndsWithItsScope) {
  CCanvas canvas;
  CSmoothEffectDC smooth(canvas.dc);
  const auto context = smooth.CreateEffectContext();
  wxBitmap pair = MakeAlphaBitmap(2, 1);
  SetPixelOf(pair, 0, 0, kRed);
  SetPixelOf(pair, 1, 0, kBlue);
  {
    CNativeState state(context->GetNativeContext());
    state.SetInterpolation(EInterpolation::nearest);
    context->DrawBitmap(pair, 0, 0, 40, 10);
    EXPECT_EQ(canvas.At(19, 5), kRed);
    EXPECT_EQ(canvas.At(20, 5), kBlue);
  }
  context->DrawBitmap(pair, 0, 20, 40, 10);
  EXPECT_EQ(canvas.At(0, 25), kRed);
  EXPECT_NE(canvas.At(19, 25), kRed);
}

TEST(NativeState, WithoutSmoothingEdgesFallOnWholePixels) {
  CCanvas canvas;
  CSmoothEffectDC smooth(canvas.dc);
  const auto context = smooth.CreateEffectContext();
  smooth.SetPen(*wxTRANSPARENT_PEN);
  smooth.SetBrush(*wxBLUE_BRUSH);
  {
    CNativeState state(context->GetNativeContext());
    state.SetSmoothing(ESmoothing::none);
    context->context->DrawRectangle(2.4, 2.4, 5, 5);
  }
  EXPECT_EQ(canvas.Ink().bounds, wxRect(2, 2, 5, 5));
  context->context->DrawRectangle(20.5, 20.5, 5, 5);
  EXPECT_EQ(canvas.At(20, 22).alpha, 128);
}

}  // namespace graphics::test
