#include "tests/paint/Canvas.h"

#include <gtest/gtest.h>

namespace graphics::test {

namespace {

wxColour PenOf(const wxDC& dc) {
  return dc.GetPen().GetColour();
}

}  // namespace

TEST(Greyscale, PensBecomeGreyByLuminance) {
  CCanvas canvas;
  canvas.dc.SetGreyscale(true);
  canvas.dc.SetPen(wxPen(wxColour(0, 0, 255), 3, wxPENSTYLE_DOT));
  EXPECT_EQ(PenOf(canvas.dc), wxColour(29, 29, 29));
  EXPECT_EQ(canvas.dc.GetPen().GetWidth(), 3);
  EXPECT_EQ(canvas.dc.GetPen().GetStyle(), wxPENSTYLE_DOT);
}

TEST(Greyscale, BrushesBecomeGreyByLuminanceAndOpaque) {
  CCanvas canvas;
  canvas.dc.SetGreyscale(true);
  canvas.dc.SetBrush(wxBrush(wxColour(255, 0, 0, 17)));
  EXPECT_EQ(canvas.dc.GetBrush().GetColour(), wxColour(76, 76, 76, 255));
  EXPECT_EQ(canvas.dc.GetBrush().GetStyle(), wxBRUSHSTYLE_SOLID);
}

TEST(Greyscale, TextCountsRedBy255AndKeepsTheLowByte) {
  CCanvas canvas;
  canvas.dc.SetGreyscale(true);
  canvas.dc.SetTextForeground(wxColour(255, 0, 0));
  EXPECT_EQ(canvas.dc.GetTextForeground(), wxColour(1, 1, 1));
  canvas.dc.SetTextForeground(wxColour(0, 255, 0));
  EXPECT_EQ(canvas.dc.GetTextForeground(), wxColour(150, 150, 150));
}

TEST(Greyscale, TakesEffectOnTheNextColourThatPasses) {
  CCanvas canvas;
  canvas.dc.SetPen(wxPen(*wxRED));
  canvas.dc.SetGreyscale(true);
  EXPECT_EQ(PenOf(canvas.dc), *wxRED);
  canvas.dc.SetPen(wxPen(*wxRED));
  EXPECT_EQ(PenOf(canvas.dc), wxColour(76, 76, 76));
}

TEST(TextColour, LosesItsAlpha) {
  CCanvas canvas;
  canvas.dc.SetTextForeground(wxColour(1, 2, 3, 40));
  EXPECT_EQ(canvas.dc.GetTextForeground(), wxColour(1, 2, 3, 255));
}

TEST(FixedPen, StaysWhateverSetPenAsksFor) {
  CCanvas canvas;
  const wxPen fixed(wxColour(1, 2, 3), 4);
  canvas.dc.SetFixedPen(&fixed);
  EXPECT_TRUE(canvas.dc.HasFixedPen());
  canvas.dc.SetPen(wxPen(*wxRED, 1));
  EXPECT_EQ(PenOf(canvas.dc), wxColour(1, 2, 3));
  EXPECT_EQ(canvas.dc.GetFixedPen(), &canvas.dc.GetPen());
}

TEST(FixedPen, NullTakesTheLockOffAndLeavesThePen) {
  CCanvas canvas;
  const wxPen fixed(wxColour(1, 2, 3), 4);
  canvas.dc.SetFixedPen(&fixed);
  canvas.dc.SetFixedPen(nullptr);
  EXPECT_FALSE(canvas.dc.HasFixedPen());
  EXPECT_EQ(PenOf(canvas.dc), wxColour(1, 2, 3));
  canvas.dc.SetPen(wxPen(*wxRED, 1));
  EXPECT_EQ(PenOf(canvas.dc), *wxRED);
}

TEST(FixedPen, GoesPastAllEffects) {
  CCanvas canvas;
  canvas.dc.SetGreyscale(true);
  const wxPen fixed(*wxRED);
  canvas.dc.SetFixedPen(&fixed);
  EXPECT_EQ(PenOf(canvas.dc), *wxRED);
}

TEST(FixedBrush, StaysUntilNullTakesTheLockOff) {
  CCanvas canvas;
  const wxBrush fixed(wxColour(1, 2, 3));
  canvas.dc.SetFixedBrush(&fixed);
  canvas.dc.SetBrush(*wxRED_BRUSH);
  EXPECT_TRUE(canvas.dc.HasFixedBrush());
  EXPECT_EQ(canvas.dc.GetFixedBrush(), &canvas.dc.GetBrush());
  EXPECT_EQ(canvas.dc.GetBrush().GetColour(), wxColour(1, 2, 3));
  canvas.dc.SetFixedBrush(nullptr);
  EXPECT_EQ(canvas.dc.GetBrush().GetColour(), wxColour(1, 2, 3));
  canvas.dc.SetBrush(*wxRED_BRUSH);
  EXPECT_EQ(canvas.dc.GetBrush().GetColour(), *wxRED);
}

TEST(FontCaching, AFontOfTheSameDescriptionDoesNotReachTheBase) {
  CCanvas canvas;
  const wxFont first(wxFontInfo(9).FaceName("DejaVu Sans"));
  const wxFont same(wxFontInfo(9).FaceName("DejaVu Sans"));
  const wxFont other(wxFontInfo(20).FaceName("DejaVu Sans"));
  canvas.dc.SetFontCaching(true);
  canvas.dc.SetFont(first);
  static_cast<CEffectDCImpl&>(*canvas.dc.GetImpl()).wxGCDCImpl::SetFont(other);
  canvas.dc.SetFont(same);
  EXPECT_EQ(canvas.dc.GetFont().GetPointSize(), 20);
  canvas.dc.SetFontCaching(false);
  canvas.dc.SetFont(same);
  EXPECT_EQ(canvas.dc.GetFont().GetPointSize(), 9);
}

TEST(FontCaching, StartsFromTheFontThatIsThere) {
  CCanvas canvas;
  canvas.dc.SetFont(wxFont(wxFontInfo(9).FaceName("DejaVu Sans")));
  canvas.dc.SetFontCaching(true);
  EXPECT_TRUE(canvas.dc.IsFontCaching());
  EXPECT_EQ(static_cast<CEffectDCImpl&>(*canvas.dc.GetImpl()).effects.lastFont,
            canvas.dc.GetFont().GetNativeFontInfoDesc());
}

TEST(EffectsOnTop, AlphaMaskAndFixedToolsCrossToTheNextContext) {
  CCanvas canvas;
  const wxPen pen(wxColour(1, 2, 3), 4);
  const wxBrush brush(wxColour(4, 5, 6));
  canvas.dc.SetFixedPen(&pen);
  canvas.dc.SetFixedBrush(&brush);
  CSmoothEffectDC smooth(canvas.dc);
  EXPECT_TRUE(smooth.HasFixedPen());
  EXPECT_TRUE(smooth.HasFixedBrush());
  EXPECT_EQ(PenOf(smooth), wxColour(1, 2, 3));
  EXPECT_EQ(smooth.GetBrush().GetColour(), wxColour(4, 5, 6));
  EXPECT_FALSE(smooth.IsAlphaMask());
}

TEST(EffectsOnTop, GreyscaleFontCachingAndCircleStayBehind) {
  CCanvas canvas;
  canvas.dc.SetGreyscale(true);
  canvas.dc.SetFontCaching(true);
  canvas.dc.SetCircleText(true);
  canvas.dc.SetCircleRadius(30);
  CSmoothEffectDC smooth(canvas.dc);
  EXPECT_FALSE(smooth.IsGreyscale());
  EXPECT_FALSE(smooth.IsFontCaching());
  EXPECT_FALSE(smooth.IsCircleText());
  EXPECT_EQ(smooth.GetCircleRadius(), 0.0);
}

TEST(EffectsOnTop, APlainMemoryContextIsDrawnOn) {
  const CToolkitLock lock;
  wxBitmap bitmap = MakeAlphaBitmap(10, 10);
  wxMemoryDC plain(bitmap);
  {
    CSmoothEffectDC smooth(plain);
    smooth.SetPen(*wxTRANSPARENT_PEN);
    smooth.SetBrush(*wxBLUE_BRUSH);
    smooth.DrawRectangle(0, 0, 5, 5);
    smooth.Flush();
  }
  plain.SelectObject(wxNullBitmap);
  EXPECT_EQ(PixelOf(bitmap, 4, 4), kBlue);
  EXPECT_EQ(PixelOf(bitmap, 5, 5), kClear);
}

TEST(EffectsOnTop, TheClippingOfTheContextBelowHolds) {
  CCanvas canvas;
  canvas.dc.SetClippingRegion(5, 5, 10, 10);
  CSmoothEffectDC smooth(canvas.dc);
  smooth.SetPen(*wxTRANSPARENT_PEN);
  smooth.SetBrush(*wxBLUE_BRUSH);
  smooth.DrawRectangle(0, 0, 60, 40);
  smooth.Flush();
  EXPECT_EQ(canvas.Ink().bounds, wxRect(5, 5, 10, 10));
}

TEST(EffectsOnTop, ABitmapContextOutlivesTheVariableOfItsBitmap) {
  const CToolkitLock lock;
  wxBitmap kept;
  auto bitmap = std::make_unique<wxBitmap>(MakeAlphaBitmap(10, 10));
  kept = *bitmap;
  TEffectDC<wxGCDC, wxBitmap&> dc(*bitmap);
  bitmap.reset();
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(*wxBLUE_BRUSH);
  dc.DrawRectangle(0, 0, 10, 10);
  dc.Flush();
  EXPECT_EQ(PixelOf(kept, 9, 9), kBlue);
}

}  // namespace graphics::test
