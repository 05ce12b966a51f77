#include "graphics/paint/native/TextLayout.h"
#include "tests/paint/Canvas.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace graphics::test {

namespace {

const wxString kSentence = "AVATAR, Wolf: the quick fjord";

class ScalableText : public testing::Test {
protected:
  ScalableText() : canvas_(700, 400) {
    canvas_.dc.SetScalableText(true);
    canvas_.dc.SetFont(FontOf(9));
  }

  static wxFont FontOf(int points) { return wxFont(wxFontInfo(points).FaceName("DejaVu Sans")); }
  void SetScale(double scale) {
    wxGraphicsContext* const context = canvas_.dc.GetGraphicsContext();
    context->SetTransform(context->CreateMatrix(scale, 0, 0, scale));
  }

  CCanvas canvas_;
};

}  // namespace

TEST_F(ScalableText, IsMeasuredAlikeAtEveryScale) {
  for (const int points : {5, 7, 8, 9, 11, 13, 24}) {
    canvas_.dc.SetFont(FontOf(points));
    SetScale(1);
    const wxSize extent = canvas_.dc.GetTextExtent(kSentence);
    wxArrayInt partial;
    ASSERT_TRUE(canvas_.dc.GetPartialTextExtents(kSentence, partial));
    for (const double scale : {0.5, 1.3, 2.0, 5.3}) {
      SetScale(scale);
      EXPECT_EQ(canvas_.dc.GetTextExtent(kSentence), extent) << points << " points, scale " << scale;
      wxArrayInt scaled;
      ASSERT_TRUE(canvas_.dc.GetPartialTextExtents(kSentence, scaled));
      EXPECT_EQ(scaled, partial) << points << " points, scale " << scale;
    }
  }
}

TEST_F(ScalableText, IsDrawnAsWideAsItIsMeasured) {
  for (const double scale : {0.5, 1.0, 1.37, 2.0, 3.0}) {
    CCanvas canvas(700, 200);
    canvas.dc.SetScalableText(true);
    canvas.dc.SetFont(FontOf(9));
    wxGraphicsContext* const context = canvas.dc.GetGraphicsContext();
    context->SetTransform(context->CreateMatrix(scale, 0, 0, scale, 10, 10));
    canvas.dc.DrawText(kSentence, 0, 0);
    // The first and the last letter stand within their own widths by less than a unit.
    const double width = canvas.dc.GetTextExtent(kSentence).x * scale;
    EXPECT_NEAR(canvas.Ink().bounds.width, width, 2 * scale + 1) << "scale " << scale;
  }
}

TEST_F(ScalableText, EndsItsPartialExtentsWhereTheTextEnds) {
  wxArrayInt partial;
  ASSERT_TRUE(canvas_.dc.GetPartialTextExtents(kSentence, partial));
  ASSERT_EQ(partial.size(), kSentence.length());
  EXPECT_EQ(partial.back(), canvas_.dc.GetTextExtent(kSentence).x);
  EXPECT_TRUE(std::is_sorted(partial.begin(), partial.end()));
}

TEST_F(ScalableText, HasNoExtentWithoutLetters) {
  wxArrayInt partial;
  ASSERT_TRUE(canvas_.dc.GetPartialTextExtents("", partial));
  EXPECT_TRUE(partial.empty());
  EXPECT_EQ(canvas_.dc.GetTextExtent(""), wxSize(0, 0));
  canvas_.dc.DrawText("", 10, 10);
  EXPECT_EQ(canvas_.Ink().count, 0);
}

TEST_F(ScalableText, IsKeptForAWhileHoweverSmallItIs) {
  SetScale(0.001);
  const auto textOf = [](int number) { return wxString::Format("%0400d", number); };
  canvas_.dc.DrawText(textOf(0), 0, 0);
  const std::weak_ptr<const CTextLayout> first = CTextLayout::Of(FontOf(9), textOf(0));
  canvas_.dc.DrawText(textOf(1), 0, 0);
  EXPECT_FALSE(first.expired());
  for (int number = 2; number < 2500; ++number) canvas_.dc.DrawText(textOf(number), 0, 0);
  EXPECT_TRUE(first.expired());
}

}  // namespace graphics::test
