#include "tests/paint/Canvas.h"

#include <gtest/gtest.h>

namespace graphics::test {

namespace {

class EffectText : public testing::Test {
protected:
  EffectText() : canvas_(120, 60) { canvas_.dc.SetFont(wxFont(wxFontInfo(10).FaceName("DejaVu Sans"))); }

  CEffects& Effects() { return static_cast<CEffectDCImpl&>(*canvas_.dc.GetImpl()).effects; }

  int CountOf(CPixel wanted) const {
    int count = 0;
    for (int y = 0; y < 60; ++y)
      for (int x = 0; x < 120; ++x) count += canvas_.At(x, y) == wanted;
    return count;
  }

  CCanvas canvas_;
};

}  // namespace

TEST_F(EffectText, IsDrawnWithAlpha) {
  canvas_.dc.SetTextForeground(*wxBLACK);
  canvas_.dc.DrawText("Menu", 10, 10);
  const wxSize extent = canvas_.dc.GetTextExtent("Menu");
  EXPECT_TRUE(wxRect(9, 9, extent.x + 2, extent.y + 2).Contains(canvas_.Ink().bounds));
  EXPECT_GT(CountOf(kBlack), 0);
}

TEST_F(EffectText, AnOutlineReachesOnePixelBeyondTheTextOnEverySide) {
  canvas_.dc.SetTextForeground(*wxRED);
  canvas_.dc.DrawText("Menu", 20, 20);
  wxRect around = canvas_.Ink().bounds;
  CCanvas outlined(120, 60);
  outlined.dc.SetFont(canvas_.dc.GetFont());
  outlined.dc.DrawOutlinedText("Menu", 20, 20, *wxRED, *wxBLUE);
  EXPECT_EQ(outlined.Ink().bounds, around.Inflate(1));
  EXPECT_EQ(outlined.dc.GetTextForeground(), *wxRED);
}

TEST_F(EffectText, LinesOfOutlinedTextStandBelowOneAnotherAndEmptyOnesTakeNoRoom) {
  const int height = canvas_.dc.GetTextExtent("M").y;
  canvas_.dc.DrawOutlinedText("M\n\nM", 20, 5, *wxRED, *wxRED);
  const wxRect both = canvas_.Ink().bounds;
  CCanvas once(120, 60);
  once.dc.SetFont(canvas_.dc.GetFont());
  once.dc.DrawOutlinedText("M", 20, 5, *wxRED, *wxRED);
  EXPECT_EQ(both.height, once.Ink().bounds.height + height);
}

TEST_F(EffectText, HasNoHaloByItself) {
  EXPECT_FALSE(Effects().textHalo);
  canvas_.dc.SetTextForeground(*wxWHITE);
  canvas_.dc.SetBackgroundMode(wxTRANSPARENT);
  canvas_.dc.DrawText("Menu", 20, 20);
  EXPECT_EQ(CountOf({127, 127, 127, 255}), 0);
}

TEST_F(EffectText, WhiteTextOnATransparentGroundGetsAGreyHalo) {
  Effects().textHalo = true;
  canvas_.dc.SetTextForeground(*wxWHITE);
  canvas_.dc.SetBrush(*wxRED_BRUSH);
  canvas_.dc.SetBackgroundMode(wxTRANSPARENT);
  canvas_.dc.DrawText("Menu", 20, 20);
  EXPECT_GT(CountOf({127, 127, 127, 255}), 0);
  EXPECT_GT(CountOf(kWhite), 0);
  EXPECT_EQ(canvas_.dc.GetTextForeground(), *wxWHITE);
}

TEST_F(EffectText, TextOfAnotherColourGetsNoHalo) {
  Effects().textHalo = true;
  canvas_.dc.SetTextForeground(*wxRED);
  canvas_.dc.DrawText("Menu", 20, 20);
  CCanvas plain(120, 60);
  plain.dc.SetFont(canvas_.dc.GetFont());
  plain.dc.SetTextForeground(*wxRED);
  plain.dc.DrawText("Menu", 20, 20);
  EXPECT_EQ(canvas_.Ink().count, plain.Ink().count);
}

TEST_F(EffectText, WhiteTextOnAGroundOfAnotherColourGetsNoHalo) {
  Effects().textHalo = true;
  canvas_.dc.SetTextForeground(*wxWHITE);
  canvas_.dc.SetBrush(*wxRED_BRUSH);
  canvas_.dc.SetTextBackground(*wxRED);
  canvas_.dc.SetBackgroundMode(wxSOLID);
  canvas_.dc.DrawText("Menu", 20, 20);
  EXPECT_EQ(CountOf({127, 127, 127, 255}), 0);
  EXPECT_GT(CountOf(kRed), 0);
}

}  // namespace graphics::test
