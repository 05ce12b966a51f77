#include "foundation/wxutil/WXError.h"
#include "graphics/art/SkinManager.h"
#include "graphics/art/TextWrapper.h"
#include "tests/paint/Canvas.h"

#include <gtest/gtest.h>
#include <wx/font.h>

#include <algorithm>
#include <limits>

namespace graphics::test {

namespace {

const wxString kHint = "Double click to edit!";
constexpr int kWide = 1000;

class Hint : public testing::Test {
protected:
  static wxFont FontOf(int points) {
    wxFont font(*wxNORMAL_FONT);
    font.SetPointSize(points);
    return font;
  }
  wxSize LineOf(const wxString& text, int points) {
    canvas_.dc.SetFont(FontOf(points));
    return MeasureLine(canvas_.dc, text);
  }
  /// The extent of a text as it is measured line by line.
  wxSize LinesOf(const wxString& text, int points) {
    canvas_.dc.SetFont(FontOf(points));
    return MeasureMultiLine(canvas_.dc, text);
  }
  wxBitmap* Styled(const wxString& text, int points, int maxWidth) {
    return manager_.GetStyledBitmap(text, FontOf(points), wxColour(50, 50, 50, 255), wxColour(230, 230, 230, 255),
                                    maxWidth);
  }

  CCanvas canvas_;
  CSkinManager manager_;
};

const wxSize kHalo(2, 2);

TEST_F(Hint, IsTwoPixelsLargerThanItsText) {
  EXPECT_EQ(manager_.GetStyledText(kHint, 1, kWide)->GetSize(), LineOf(kHint, 10) + kHalo);
}

TEST_F(Hint, IsMadeOnce) {
  wxBitmap* const first = manager_.GetStyledText(kHint, 1, kWide);
  EXPECT_EQ(manager_.GetStyledText(kHint, 1, kWide), first);
  EXPECT_NE(manager_.GetStyledText(kHint, 2, kWide), first);
  EXPECT_NE(manager_.GetStyledText(kHint, 1, kWide + 1), first);
  EXPECT_NE(manager_.GetStyledText("Click me!", 1, kWide), first);
  EXPECT_NE(Styled(kHint, 11, kWide), first);
}

TEST_F(Hint, HasDarkTextInALightHaloOnNothing) {
  const wxBitmap& plain = *manager_.GetStyledText(kHint, 1, kWide);
  int darkest = 255, lightest = 0, clear = 0;
  for (int y = 0; y < plain.GetHeight(); ++y) {
    for (int x = 0; x < plain.GetWidth(); ++x) {
      const CPixel pixel = PixelOf(plain, x, y);
      if (pixel == kClear) ++clear;
      if (pixel.alpha < 255) continue;
      darkest = std::min(darkest, pixel.red);
      lightest = std::max(lightest, pixel.red);
    }
  }
  EXPECT_LT(darkest, 150);
  EXPECT_GE(darkest, 50);
  EXPECT_EQ(lightest, 230);
  EXPECT_GT(clear, 0);
}

TEST_F(Hint, HasADarkerHaloInTheSecondStyle) {
  const wxBitmap& bold = *manager_.GetStyledText(kHint, 2, kWide);
  int lightest = 0;
  for (int y = 0; y < bold.GetHeight(); ++y)
    for (int x = 0; x < bold.GetWidth(); ++x)
      if (PixelOf(bold, x, y).alpha == 255) lightest = std::max(lightest, PixelOf(bold, x, y).red);
  EXPECT_EQ(lightest, 200);
}

TEST_F(Hint, HasAHaloOnAllSidesOfItsLetters) {
  const wxBitmap& hint = *manager_.GetStyledText(kHint, 1, kWide);
  for (int y = 1; y + 1 < hint.GetHeight(); ++y) {
    for (int x = 1; x + 1 < hint.GetWidth(); ++x) {
      const CPixel pixel = PixelOf(hint, x, y);
      if (pixel.alpha < 255 || pixel.red > 120) continue;
      for (int dy = -1; dy <= 1; ++dy)
        for (int dx = -1; dx <= 1; ++dx) EXPECT_GT(PixelOf(hint, x + dx, y + dy).alpha, 0) << x << ',' << y;
    }
  }
}

TEST_F(Hint, ThrowsForAThirdStyleWhateverTheText) {
  for (const char* const text : {"", "text", "Double click to edit!"}) {
    for (const int style : {3, 0, -1}) {
      try {
        manager_.GetStyledText(text, style, kWide);
        ADD_FAILURE() << "no error";
      } catch (const wxutil::CWXError& error) {
        EXPECT_EQ(error.getWxMessage(), "CSkinManager.GetStyledText: Unknown style");
      }
    }
  }
}

TEST_F(Hint, FitsWithTwoPixelsToSpareOnEachSide) {
  const int width = LineOf(kHint, 10).x;
  EXPECT_EQ(Styled(kHint, 10, width + 4)->GetSize(), LineOf(kHint, 10) + kHalo);
  EXPECT_EQ(Styled(kHint, 10, width + 3)->GetSize(), LineOf(kHint, 9) + kHalo);
}

TEST_F(Hint, IsMadeSmallerPointByPointAndFoundAgain) {
  const int maxWidth = LineOf(kHint, 8).x + 4;
  wxBitmap* const shrunk = Styled(kHint, 10, maxWidth);
  EXPECT_EQ(shrunk->GetSize(), LineOf(kHint, 8) + kHalo);
  EXPECT_EQ(Styled(kHint, 10, maxWidth), shrunk);
  EXPECT_EQ(Styled(kHint, 8, maxWidth), shrunk);
}

TEST_F(Hint, IsBrokenIntoLinesInAFontOfSixPoints) {
  const int maxWidth = LineOf(kHint, 6).x;
  const wxString lines = CTextWrapper(FontOf(6)).Wrap(kHint, maxWidth - 4);
  EXPECT_EQ(lines, "Double click to \nedit!");
  EXPECT_EQ(Styled(kHint, 10, maxWidth)->GetSize(), LinesOf(lines, 6) + kHalo);
}

TEST_F(Hint, IsBrokenIntoLinesAtOnceInASmallFont) {
  for (const int points : {6, 5}) {
    const int maxWidth = LineOf(kHint, points).x;
    const wxString lines = CTextWrapper(FontOf(points)).Wrap(kHint, maxWidth - 4);
    EXPECT_EQ(Styled(kHint, points, maxWidth)->GetSize(), LinesOf(lines, points) + kHalo) << points;
  }
}

TEST_F(Hint, IsMeasuredInOneLineUntilItsFontIsMadeSmaller) {
  const wxString twoLines = "A\nB";
  EXPECT_EQ(Styled(twoLines, 10, kWide)->GetSize(), LineOf("AB", 10) + kHalo);
  const int tooNarrow = LineOf("AB", 10).x + 3;
  EXPECT_EQ(Styled(twoLines, 10, tooNarrow)->GetSize(), LinesOf(twoLines, 9) + kHalo);
  EXPECT_EQ(LinesOf(twoLines, 9).y, 2 * LineOf("A", 9).y);
}

TEST_F(Hint, IsNeverWithoutAPixel) {
  constexpr int kLeast = std::numeric_limits<int>::min();
  constexpr int kMost = std::numeric_limits<int>::max();
  for (const char* const text : {"", "\n", "\n\n\n", " ", "Click me!"}) {
    for (const int maxWidth : {kLeast, -1, 0, 1, 3, 4, 5, kMost}) {
      const wxBitmap* const hint = manager_.GetStyledText(text, 1, maxWidth);
      ASSERT_TRUE(hint) << '"' << text << "\" " << maxWidth;
      EXPECT_GE(hint->GetWidth(), 2) << '"' << text << "\" " << maxWidth;
      EXPECT_GE(hint->GetHeight(), 2) << '"' << text << "\" " << maxWidth;
    }
  }
}

TEST_F(Hint, ThatIsTooLongOrTooLargeHasNoPicture) {
  EXPECT_TRUE(manager_.GetStyledText(wxString('i', kMaxHintLength), 1, 30'000));
  EXPECT_FALSE(manager_.GetStyledText(wxString('i', kMaxHintLength + 1), 1, 30'000));
  EXPECT_FALSE(manager_.GetStyledText(wxString('W', kMaxHintLength), 1, 10));
  EXPECT_FALSE(manager_.GetStyledText(wxString('-', kMaxHintLength), 1, 0));
  EXPECT_FALSE(Styled("W", 3000, kWide * kWide));
}

TEST_F(Hint, HasNoPictureOnceAllThatMemoryIsFull) {
  constexpr std::size_t kFewBytes = 60'000;
  CSkinManager small(kFewBytes);
  wxBitmap* const first = small.GetStyledText("Click me!", 1, kWide);
  ASSERT_TRUE(first);
  int made = 0;
  for (int width = kWide + 1; small.GetStyledText("Click me!", 1, width); ++width) ASSERT_LT(++made, 60);
  EXPECT_GT(made, 2);
  EXPECT_EQ(small.GetStyledText("Click me!", 1, kWide), first);
  EXPECT_FALSE(small.GetStyledText("Click me!", 1, kWide * 2));
}

}  // namespace

}  // namespace graphics::test
