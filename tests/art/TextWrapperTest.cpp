#include "graphics/art/TextWrapper.h"
#include "tests/paint/Canvas.h"

#include <gtest/gtest.h>
#include <wx/font.h>

#include <limits>

namespace graphics::test {

namespace {

class TextWrapper : public testing::Test {
protected:
  int WidthOf(const wxString& text) { return canvas_.dc.GetTextExtent(text).x; }
  wxString Wrapped(const wxString& text, int maxWidth) const {
    return CTextWrapper(*wxNORMAL_FONT).Wrap(text, maxWidth);
  }

  CCanvas canvas_;

private:
  void SetUp() override { canvas_.dc.SetFont(*wxNORMAL_FONT); }
};

TEST_F(TextWrapper, LeavesTextThatFitsAsItIs) {
  EXPECT_EQ(Wrapped("a, b. c", 1000), "a, b. c");
  EXPECT_EQ(Wrapped("", 1000), "");
}

TEST_F(TextWrapper, FillsLinesWithWords) {
  EXPECT_EQ(Wrapped("one two three", WidthOf("one two ") + 3), "one two \nthree");
}

TEST_F(TextWrapper, LetsTextReachTheWidthExactly) {
  const int width = WidthOf("one ") + WidthOf("two ");
  EXPECT_EQ(Wrapped("one two three", width), "one two \nthree");
  EXPECT_EQ(Wrapped("one two three", width - 1), "one \ntwo \nthree");
}

TEST_F(TextWrapper, PutsALineFeedBeforeAWordThatIsTooWideAndLeavesItWhole) {
  EXPECT_EQ(Wrapped("Incomprehensible", 20), "\nIncomprehensible");
}

TEST_F(TextWrapper, BreaksAfterDelimitersNotBefore) {
  EXPECT_EQ(Wrapped("a,b", WidthOf("a,")), "a,\nb");
  EXPECT_EQ(Wrapped("a:b", WidthOf("a:")), "a:\nb");
  EXPECT_EQ(Wrapped("a-b", WidthOf("a-")), "a-\nb");
  EXPECT_EQ(Wrapped("a?b", WidthOf("a?")), "a?\nb");
  EXPECT_EQ(Wrapped("a.b", WidthOf("a.")), "a.\nb");
  EXPECT_EQ(Wrapped("a;b", WidthOf("a;")), "\na;b");
}

TEST_F(TextWrapper, KeepsTheLineFeedsOfTheText) {
  EXPECT_EQ(Wrapped("a\n\nb\n", 1000), "a\n\nb\n");
}

TEST_F(TextWrapper, StartsAnewAfterALineFeedOfTheText) {
  EXPECT_EQ(Wrapped("one\ntwo three", WidthOf("two ")), "one\ntwo \nthree");
}

TEST_F(TextWrapper, LosesNoDelimiterAtTheEnd) {
  EXPECT_EQ(Wrapped("Wait...", 1000), "Wait...");
  EXPECT_EQ(Wrapped("a  ", 1000), "a  ");
}

TEST_F(TextWrapper, BreaksBeforeEveryWordWhereThereIsNoRoomAtAll) {
  for (const int width : {0, -1, std::numeric_limits<int>::min()}) EXPECT_EQ(Wrapped("a b", width), "\na \nb") << width;
}

TEST_F(TextWrapper, IsNotSlowedDownByLongRunsOfDelimiters) {
  const wxString spaces(' ', 20'000);
  EXPECT_EQ(Wrapped(spaces + "a", std::numeric_limits<int>::max()), spaces + "a");
}

TEST_F(TextWrapper, MeasuresTheWidestLineAndTheHeightOfAll) {
  wxDC& dc = canvas_.dc;
  const wxSize line = dc.GetTextExtent("wide line");
  EXPECT_EQ(MeasureMultiLine(dc, "wide line"), line);
  EXPECT_EQ(MeasureMultiLine(dc, "x\nwide line\ny"), wxSize(line.x, 3 * line.y));
  EXPECT_EQ(MeasureMultiLine(dc, ""), wxSize(0, 0));
}

TEST_F(TextWrapper, MeasuresALineAsIfItHadNoLineFeeds) {
  wxDC& dc = canvas_.dc;
  EXPECT_EQ(MeasureLine(dc, "A\nB"), dc.GetTextExtent("AB"));
}

}  // namespace

}  // namespace graphics::test
