#include "graphics/art/CentredHint.h"
#include "graphics/art/SkinManager.h"
#include "tests/paint/Canvas.h"

#include <gtest/gtest.h>

#include <limits>

namespace graphics::test {

namespace {

constexpr CPixel kIconColour{0, 0, 255, 255};

class CentredHint : public testing::Test {
protected:
  static wxBitmap IconOf(int width, int height) {
    wxBitmap icon = MakeAlphaBitmap(width, height);
    for (int y = 0; y < height; ++y)
      for (int x = 0; x < width; ++x) SetPixelOf(icon, x, y, kIconColour);
    return icon;
  }
  wxRect Draw(const wxString& text, const CDoubleRect& rect, const wxBitmap* icon = nullptr, bool bold = false) {
    DrawCentredHint(canvas_.dc, text, rect, bold, icon);
    canvas_.dc.Flush();
    return canvas_.Ink().bounds;
  }
  static wxSize SizeOf(const wxString& text, int width) {
    return CSkinManager::GetInstance().GetStyledText(text, 1, width)->GetSize();
  }
  /// The ink of a hint within its picture.
  static wxRect InkIn(const wxString& text, int width) {
    return InkOf(*CSkinManager::GetInstance().GetStyledText(text, 1, width)).bounds;
  }

  CCanvas canvas_{200, 100};
};

TEST_F(CentredHint, StandsInTheMiddle) {
  const wxSize size = SizeOf("Click me!", 160);
  wxRect expected = InkIn("Click me!", 160);
  expected.Offset(100 - size.x / 2, 50 - (size.y + 1) / 2);
  EXPECT_EQ(Draw("Click me!", {20, 10, 160, 80}), expected);
}

TEST_F(CentredHint, RoundsItsTopDown) {
  const wxBitmap icon = IconOf(10, 5);
  EXPECT_EQ(Draw("", {0, 0, 40, 40}, &icon), wxRect(15, 17, 10, 5));
}

TEST_F(CentredHint, StandsUnderItsIcon) {
  const wxBitmap icon = IconOf(20, 10);
  const wxSize size = SizeOf("Click me!", 200);
  const int top = 50 - (size.y + 10 + 1) / 2;
  Draw("Click me!", {0, 0, 200, 100}, &icon);
  EXPECT_EQ(canvas_.At(90, top), kIconColour);
  EXPECT_EQ(canvas_.At(109, top + 9), kIconColour);
  const wxRect text = InkIn("Click me!", 200);
  EXPECT_EQ(canvas_.Ink().bounds.GetBottom(), top + 10 + text.GetBottom());
}

TEST_F(CentredHint, LeavesOutAnIconThatIsTooHigh) {
  const wxSize size = SizeOf("Click me!", 200);
  const wxBitmap icon = IconOf(20, 10);
  const CDoubleRect exact{0, 0, 200, size.y + 10.0};
  const CDoubleRect low{0, 0, 200, size.y + 9.5};
  Draw("Click me!", exact, &icon);
  EXPECT_EQ(canvas_.At(100, 0), kIconColour);
  CCanvas other(200, 100);
  DrawCentredHint(other.dc, "Click me!", low, false, &icon);
  other.dc.Flush();
  EXPECT_NE(other.At(100, 0), kIconColour);
  EXPECT_GT(other.Ink().count, 0);
}

TEST_F(CentredHint, LeavesOutATextThatIsTooHighOrTooWide) {
  EXPECT_TRUE(Draw("Click me!", {0, 0, 200, 8}).IsEmpty());
  EXPECT_TRUE(Draw("Incomprehensibilities", {0, 0, 20, 100}).IsEmpty());
}

TEST_F(CentredHint, ShowsItsIconAloneWhereTheTextIsTooWide) {
  const wxBitmap icon = IconOf(10, 10);
  EXPECT_EQ(Draw("Incomprehensibilities", {0, 0, 20, 100}, &icon), wxRect(5, 45, 10, 10));
}

TEST_F(CentredHint, IsDarkerAroundWhenBold) {
  CCanvas other(200, 100);
  DrawCentredHint(other.dc, "Click me!", {0, 0, 200, 100}, true);
  other.dc.Flush();
  Draw("Click me!", {0, 0, 200, 100});
  EXPECT_EQ(canvas_.Ink().bounds, other.Ink().bounds);
  int darker = 0;
  for (int y = 0; y < 100; ++y)
    for (int x = 0; x < 200; ++x) darker += other.At(x, y).red < canvas_.At(x, y).red;
  EXPECT_GT(darker, 50);
}

TEST_F(CentredHint, ShowsNothingWithoutTextAndIcon) {
  EXPECT_TRUE(Draw("", {0, 0, 200, 100}).IsEmpty());
  const wxBitmap none;
  EXPECT_TRUE(Draw("", {0, 0, 200, 100}, &none).IsEmpty());
}

TEST_F(CentredHint, BearsRectanglesOfAnySize) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  for (const double length : {0.0, -5.0, 1e12, -1e12, kInfinity, -kInfinity, kNan}) {
    DrawCentredHint(canvas_.dc, "Click me!", {0, 0, length, length}, false);
    DrawCentredHint(canvas_.dc, "Click me!", {length, length, 100, 100}, false);
  }
}

}  // namespace

}  // namespace graphics::test
