#include "graphics/elements/GraphicTextCircle.h"
#include "tests/elements/TextPage.h"

#include <gtest/gtest.h>

namespace graphics::test {

namespace {

class TextCircle : public testing::Test {
protected:
  static wxRect Painted(CGraphicText& text) {
    CTextPage page(200, 200);
    text.Paint(page.context);
    return page.Ink().bounds;
  }
  void Show(const wxString& letters, CDoubleRect frame) {
    text_.SetBuffer(TextOf({letters}).get());
    Place(text_, frame);
  }

  CGraphicTextCircle text_;
};

wxString Long() {
  wxString text;
  for (int i = 0; i < 200; ++i) text << "Main menu, ";
  return text;
}

}  // namespace

TEST_F(TextCircle, StartsAtTheTop) {
  Show("M", {20, 20, 160, 160});
  const wxRect ink = Painted(text_);
  EXPECT_NEAR(ink.x, 100, 3);
  EXPECT_TRUE(ink.y >= 20 && ink.GetBottom() < 45) << ink.y << " to " << ink.GetBottom();
}

TEST_F(TextCircle, StartsAtTheRightWhenItIsTurnedByNinetyDegrees) {
  Show("M", {20, 20, 160, 160});
  text_.SetRotation(90);
  const wxRect ink = Painted(text_);
  EXPECT_NEAR(ink.y, 100, 3);
  EXPECT_TRUE(ink.GetRight() <= 180 && ink.x > 155) << ink.x << " to " << ink.GetRight();
}

TEST_F(TextCircle, RunsRoundTheSmallerSideOfItsFrame) {
  Show(Long(), {10, 50, 180, 100});
  const wxRect ink = Painted(text_);
  EXPECT_TRUE(wxRect(50, 50, 100, 100).Inflate(2).Contains(ink));
  EXPECT_GT(ink.width, 90);
  EXPECT_GT(ink.height, 90);
}

TEST_F(TextCircle, HasNoLettersBelowARadiusOfFifteen) {
  Show("MMM", {20, 20, 29, 29});
  EXPECT_TRUE(Painted(text_).IsEmpty());
  Show("MMM", {20, 20, 30, 30});
  EXPECT_FALSE(Painted(text_).IsEmpty());
}

TEST_F(TextCircle, LeavesOutWhatFindsNoRoom) {
  Show(Long(), {0, 0, 200, 200});
  const wxRect once = Painted(text_);
  Show(Long() + Long() + Long(), {0, 0, 200, 200});
  EXPECT_EQ(Painted(text_), once);
  EXPECT_TRUE(wxRect(0, 0, 200, 200).Contains(once));
}

TEST_F(TextCircle, ParagraphsGoOnWhereTheOneBeforeEnded) {
  Show("abcdef", {20, 20, 160, 160});
  const wxRect single = Painted(text_);
  text_.SetBuffer(TextOf({"abc", "def"}).get());
  EXPECT_EQ(Painted(text_), single);
}

TEST_F(TextCircle, IsMirroredAsAWhole) {
  Show("MMMM", {20, 20, 160, 160});
  const wxRect plain = Painted(text_);
  EXPECT_GT(plain.GetRight(), 120);
  text_.SetMirror(0, true);
  const wxRect mirrored = Painted(text_);
  EXPECT_NEAR(mirrored.x, 200 - plain.GetRight(), 2);
  EXPECT_NEAR(mirrored.y, plain.y, 2);
  text_.SetMirror(0, false);
  text_.SetMirror(1, true);
  EXPECT_NEAR(Painted(text_).GetBottom(), 200 - plain.y, 2);
}

TEST_F(TextCircle, ItsFrameDoesNotTurn) {
  text_.SetRotation(45);
  text_.SetBoundingSize({80, 30});
  EXPECT_EQ(text_.GetSize(), (CDoubleSize{80, 30}));
  EXPECT_EQ(text_.GetBoundingSize(), (CDoubleSize{80, 30}));
}

TEST_F(TextCircle, KeepsItsTurnsAtEveryZoom) {
  Show("Main menu, chapters, languages", {10, 10, 90, 90});
  CTextPage small(100, 100);
  text_.Paint(small.context);
  CTextPage large(400, 400);
  large.context.matrix = CMatrix::Scale(4, 4);
  text_.Paint(large.context);
  const wxRect a = small.Ink().bounds;
  const wxRect b = large.Ink().bounds;
  EXPECT_NEAR(b.x, a.x * 4, 6);
  EXPECT_NEAR(b.y, a.y * 4, 6);
  EXPECT_NEAR(b.width, a.width * 4, 8);
  EXPECT_NEAR(b.height, a.height * 4, 8);
}

TEST_F(TextCircle, NeverMarksText) {
  Show(Long(), {20, 20, 60, 60});
  Painted(text_);
  EXPECT_FALSE(text_.Overflows());
}

TEST_F(TextCircle, WithoutContentShowsItsHint) {
  Place(text_, {0, 0, 200, 200});
  EXPECT_FALSE(Painted(text_).IsEmpty());
  text_.SetBuffer(nullptr);
  EXPECT_TRUE(Painted(text_).IsEmpty());
}

TEST_F(TextCircle, ComesBackFromXmlAndAsAClone) {
  Show("Ring", {0, 0, 50, 50});
  EXPECT_EQ(Reloaded(text_)->GetBuffer()->GetText(), "Ring");
  EXPECT_EQ(text_.Clone()->GetType(), 4);
}

}  // namespace graphics::test
