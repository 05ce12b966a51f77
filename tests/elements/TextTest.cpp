#include "graphics/elements/GraphicText.h"
#include "graphics/elements/GraphicTextCircle.h"
#include "graphics/elements/RichTextPainting.h"
#include "graphics/geometry/XmlNode.h"
#include "tests/elements/TextPage.h"

#include <gtest/gtest.h>

#include <limits>

namespace graphics::test {

namespace {

const wxString kSentence = "The quick brown fox jumps over the lazy dog and runs away from it";
constexpr std::uint32_t kFramed = 1U << 2;
constexpr std::uint32_t kInvites = 1U << 5;

class Text : public testing::Test {
protected:
  Text() : page_(200, 120) {}

  void Show(const std::vector<wxString>& paragraphs, CDoubleRect frame) {
    text_.SetBuffer(TextOf(paragraphs).get());
    Place(text_, frame);
  }
  wxRect Painted() {
    text_.Paint(page_.context);
    return page_.Ink().bounds;
  }
  /// How high the text becomes in that width.
  int HeightOf(const std::vector<wxString>& paragraphs, int width) {
    const auto buffer = CSkinManager::GetInstance().CreateTextBuffer(TextOf(paragraphs).get());
    page_.dc.SetScalableText(true);
    return LayOutRichText(*buffer, page_.dc, wxRect(0, 0, width, 10)).y;
  }

  CTextPage page_;
  CGraphicText text_;
};

}  // namespace

TEST_F(Text, IsWrittenInsideItsFrame) {
  Show({kSentence}, {20, 10, 100, 100});
  const wxRect ink = Painted();
  EXPECT_TRUE(wxRect(20, 10, 100, 100).Contains(ink));
  EXPECT_LE(ink.x, 22);
  EXPECT_LE(ink.y, 16);
  EXPECT_GT(LineStartsOf(*text_.GetBuffer()).size(), 3U);
  EXPECT_FALSE(text_.Overflows());
}

TEST_F(Text, BreaksItsLinesAtTheSameWordsAtEveryZoom) {
  Show({kSentence, kSentence + kSentence}, {0, 0, 93, 400});
  Painted();
  const auto starts = LineStartsOf(*text_.GetBuffer());
  for (const double zoom : {0.3, 0.5, 0.77, 1.5, 2.0, 6.0}) {
    page_.context.matrix = CMatrix::Scale(zoom, zoom);
    text_.SetSize(text_.GetSize());
    Painted();
    EXPECT_EQ(LineStartsOf(*text_.GetBuffer()), starts) << "zoom " << zoom;
  }
}

TEST_F(Text, IsLaidOutAgainOnlyWhenItsFrameChanges) {
  Show({kSentence}, {0, 0, 90, 100});
  Painted();
  const auto starts = LineStartsOf(*text_.GetBuffer());
  page_.context.matrix = CMatrix::Scale(2, 2);
  Painted();
  EXPECT_FALSE(text_.GetBuffer()->IsDirty());
  text_.SetSize({150, 100});
  EXPECT_TRUE(text_.GetBuffer()->IsDirty());
  Painted();
  EXPECT_FALSE(text_.GetBuffer()->IsDirty());
  EXPECT_LT(LineStartsOf(*text_.GetBuffer()).size(), starts.size());
}

TEST_F(Text, FitsAFrameThatIsExactlyAsHigh) {
  const std::vector<wxString> paragraphs{kSentence};
  const int height = HeightOf(paragraphs, 100);
  Show(paragraphs, {0, 0, 100, static_cast<double>(height)});
  Painted();
  EXPECT_FALSE(text_.Overflows());
  text_.SetSize({100, height - 1.0});
  Painted();
  EXPECT_TRUE(text_.Overflows());
  text_.SetSize({100, static_cast<double>(height)});
  Painted();
  EXPECT_FALSE(text_.Overflows());
}

TEST_F(Text, IsCutAtItsFrameWithARedLineBelow) {
  Show({kSentence}, {20, 10, 100, 20});
  const wxRect ink = Painted();
  EXPECT_TRUE(text_.Overflows());
  // The box is grown by one; a line of two pixels lies along its lower edge.
  EXPECT_EQ(ink.GetBottom(), 31);
  EXPECT_EQ(page_.At(60, 30), kRed);
  EXPECT_EQ(page_.At(60, 31), kRed);
  EXPECT_NE(page_.At(60, 29), kRed);
  EXPECT_EQ(page_.At(60, 32), kClear);
}

TEST_F(Text, IsNoLongerCutWhenItIsGone) {
  Show({kSentence}, {20, 10, 100, 20});
  Painted();
  ASSERT_TRUE(text_.Overflows());
  text_.ClearContent();
  EXPECT_FALSE(text_.Overflows());
}

TEST_F(Text, TurnsBeforeItIsMirrored) {
  text_.SetRotation(90);
  Show({"MMM"}, {50, 10, 100, 100});
  const wxRect turned = Painted();
  // Clockwise: the line starts at the top of the right side.
  EXPECT_GT(turned.x, 130);
  EXPECT_LT(turned.y, 15);

  CTextPage page;
  text_.SetMirror(0, true);
  text_.Paint(page.context);
  const wxRect mirrored = page.Ink().bounds;
  // A picture is mirrored first and would show its start at the lower end of the right side.
  EXPECT_LT(mirrored.GetRight(), 70);
  EXPECT_LT(mirrored.y, 15);
}

TEST_F(Text, IsMirroredAboutTheMiddleOfItsFrame) {
  Show({"MMM"}, {20, 10, 100, 60});
  const wxRect plain = Painted();
  CTextPage page;
  text_.SetMirror(0, true);
  text_.SetMirror(1, true);
  text_.Paint(page.context);
  const wxRect mirrored = page.Ink().bounds;
  const double middleX = 2 * 20 + 100;
  const double middleY = 2 * 10 + 60;
  EXPECT_NEAR(plain.x + mirrored.GetRight(), middleX, 2);
  EXPECT_NEAR(plain.y + mirrored.GetBottom(), middleY, 2);
}

TEST_F(Text, LosesItsColourWhenItIsNotColoured) {
  wxRichTextBuffer buffer;
  wxRichTextAttr style = StyleOf(24);
  style.SetTextColour(wxColour(255, 0, 0));
  buffer.AddParagraph("M", &style);
  text_.SetBuffer(&buffer);
  Place(text_, {0, 0, 100, 100});
  text_.SetColoured(false);
  const wxRect ink = Painted();
  for (int y = ink.y; y <= ink.GetBottom(); ++y)
    for (int x = ink.x; x <= ink.GetRight(); ++x) EXPECT_LE(page_.At(x, y).red, 1);
}

TEST_F(Text, AFreshOneInvitesToEditIt) {
  EXPECT_EQ(text_.GetFlags(), 1U | 1U << 4 | kInvites);
  EXPECT_EQ(text_.GetText(), "Double click to edit text");
  text_.SetBuffer(nullptr);
  EXPECT_EQ(text_.GetText(), "Double click to edit text");
  text_.SetText("Mine");
  EXPECT_EQ(text_.GetText(), "Mine");
  text_.SetText("");
  text_.SetFlags(text_.GetFlags() & ~kInvites);
  EXPECT_EQ(text_.GetText(), "");
}

TEST_F(Text, WithoutContentShowsItsHintInEveryView) {
  Place(text_, {0, 0, 200, 120});
  for (const int view : {0, 1, 2, 5}) {
    CTextPage page;
    page.context.viewMode = view;
    text_.Paint(page.context);
    EXPECT_GT(page.Ink().count, 200) << "view " << view;
  }
}

TEST_F(Text, IsFramedInTheAuthoringViewsAlone) {
  const auto framed = [&](int view) {
    CTextPage page;
    page.context.viewMode = view;
    text_.Paint(page.context);
    return page.At(20, 60) == kBlack;
  };
  Place(text_, {20, 20, 150, 80});
  EXPECT_TRUE(framed(1)) << "without content";
  EXPECT_TRUE(framed(2));
  EXPECT_FALSE(framed(0));
  EXPECT_FALSE(framed(5));
  text_.SetBuffer(nullptr);
  EXPECT_FALSE(framed(1)) << "with content";
  text_.SetFlags(text_.GetFlags() | kFramed);
  EXPECT_TRUE(framed(1));
  EXPECT_TRUE(framed(2));
  EXPECT_FALSE(framed(0));
}

TEST_F(Text, ForgetsItsContentWithItsText) {
  text_.SetText("Mine");
  text_.ClearContent();
  EXPECT_EQ(text_.GetText(), "Mine") << "there was no content";
  text_.SetBuffer(nullptr);
  EXPECT_FALSE(text_.IsContentEmpty());
  text_.ClearContent();
  EXPECT_TRUE(text_.IsContentEmpty());
  EXPECT_EQ(text_.GetText(), "Double click to edit text");
}

TEST_F(Text, TakesOverContentButNotTheLackOfIt) {
  CGraphicText other;
  Show({"Mine"}, {0, 0, 50, 50});
  text_.Assign(other);
  ASSERT_NE(text_.GetBuffer(), nullptr);
  other.SetBuffer(TextOf({"Other"}).get());
  text_.Assign(other);
  EXPECT_EQ(text_.GetBuffer()->GetText(), "Other");
  EXPECT_TRUE(text_.GetBuffer()->IsDirty());
  EXPECT_EQ(text_.Clone()->GetType(), 3);
}

TEST_F(Text, ComesBackFromXmlInTheDefaultStyle) {
  Show({"First", "Second"}, {0, 0, 50, 50});
  const auto copy = Reloaded(text_);
  ASSERT_NE(copy->GetBuffer(), nullptr);
  EXPECT_EQ(copy->GetBuffer()->GetText(), text_.GetBuffer()->GetText());
  EXPECT_TRUE(copy->GetBuffer()->GetBasicStyle() == CSkinManager::GetInstance().DefaultTextStyle());
  EXPECT_TRUE(copy->GetBuffer()->IsDirty());
}

TEST_F(Text, KeepsTheStyleThatItsFileNames) {
  ReadXml(text_, "<text>" +
                     RichTextNode(" textcolor='#FF0000' fontpointsize='30' alignment='3' margin-left='40,4098'") +
                     "</text>");
  wxRichTextAttr expected = CSkinManager::GetInstance().DefaultTextStyle();
  expected.SetTextColour(wxColour(255, 0, 0));
  expected.SetFontPointSize(30);
  expected.SetAlignment(wxTEXT_ALIGNMENT_RIGHT);
  expected.GetTextBoxAttr().GetMargins().GetLeft().SetValue(40, wxTEXT_ATTR_UNITS_PIXELS);
  EXPECT_TRUE(text_.GetBuffer()->GetBasicStyle() == expected);
  Place(text_, {0, 0, 200, 120});
  const wxRect ink = Painted();
  EXPECT_GE(ink.x, 40);
  EXPECT_GT(ink.height, 20);
  for (int y = ink.y; y <= ink.GetBottom(); ++y)
    for (int x = ink.x; x <= ink.GetRight(); ++x) EXPECT_EQ(page_.At(x, y).red, page_.At(x, y).alpha);
}

TEST_F(Text, HasTheDefaultStyleWhereItsFileNamesNone) {
  ReadXml(text_, "<text>" + RichTextNode("") + "</text>");
  EXPECT_TRUE(text_.GetBuffer()->GetBasicStyle() == CSkinManager::GetInstance().DefaultTextStyle());
  ReadXml(text_, "<text>" + RichTextNode(" fontpointsize='30'") + "</text>");
  const wxRichTextAttr style = text_.GetBuffer()->GetBasicStyle();
  EXPECT_EQ(style.GetTextColour(), *wxBLACK);
  EXPECT_EQ(style.GetFontSize(), 30);
  EXPECT_EQ(style.GetFontFaceName(), CSkinManager::GetInstance().DefaultTextStyle().GetFontFaceName());
}

TEST_F(Text, SurvivesWhateverItsFileNames) {
  ReadXml(text_, "<text>" + RichTextNode(" fontpixelsize='20'") + "</text>");
  Place(text_, {0, 0, 100, 50});
  EXPECT_FALSE(Painted().IsEmpty());
  for (const char* const side : {"left", "right", "top", "bottom"}) {
    for (const char* const part : {"margin-", "padding-", "border-", "outline-"}) {
      for (const char* const value : {"-2147483648,4098", "2147483647,4098", "100,256", "65535,4097", "x"}) {
        const std::string name = std::string(" ") + part + side;
        ReadXml(text_, "<text>" +
                           RichTextNode(name + "='" + value + "'" + name + "-width='" + value + "'" + name +
                                        "-style='1'" + " width='" + value + "' height='" + value + "' minwidth='" +
                                        value + "' maxheight='" + value + "' float='1'") +
                           "</text>");
        Place(text_, {0, 0, 100, 50});
        Painted();
      }
    }
  }
  Show({kSentence}, {0, 0, 150, 100});
  EXPECT_GT(Painted().width, 50) << "text can still be drawn";
}

TEST_F(Text, WithoutContentHasNoAttachment) {
  wxXmlNode node(wxXML_ELEMENT_NODE, "text");
  const auto store = orlo::makeObject<CBase64Resources>();
  text_.WriteToXml(node, *store);
  EXPECT_EQ(xml::FindChild(node, "attachment-richtextbuffer"), nullptr);
  text_.SetBuffer(nullptr);
  text_.ReadFromXml(node, *store);
  EXPECT_EQ(text_.GetBuffer(), nullptr);
}

TEST_F(Text, LooksTheSameASecondTimeAndOnOtherPages) {
  Show({kSentence}, {20, 10, 100, 100});
  Painted();
  CTextPage again;
  text_.Paint(again.context);
  for (int y = 0; y < 120; ++y)
    for (int x = 0; x < 200; ++x) ASSERT_EQ(again.At(x, y), page_.At(x, y)) << x << ", " << y;
}

TEST_F(Text, ShowsWhatHasChangedSinceItWasPaintedLast) {
  Show({"MMM"}, {0, 0, 100, 50});
  const int before = (Painted(), page_.Ink().count);
  const auto inkNow = [&] {
    CTextPage page;
    text_.Paint(page.context);
    return page.Ink();
  };
  text_.SetBuffer(TextOf({"i"}).get());
  EXPECT_LT(inkNow().count, before);
  const int left = inkNow().bounds.x;
  text_.SetTopLeft(40, 0);
  EXPECT_EQ(inkNow().bounds.x, left + 40);
  text_.SetTopLeft(190, 0);
  EXPECT_EQ(inkNow().bounds.x, left + 190);
  text_.SetTopLeft(300, 0);
  EXPECT_EQ(inkNow().count, 0) << "beyond the surface";
}

TEST_F(Text, SurvivesFramesThatAreNoPlaces) {
  const double infinite = std::numeric_limits<double>::infinity();
  for (const double extent : {0.0, -50.0, 1e-9, 1e9, 1e300, infinite, std::numeric_limits<double>::quiet_NaN()}) {
    Show({kSentence}, {0, 0, extent, 50});
    Painted();
    Show({kSentence}, {0, 0, 50, extent});
    Painted();
    Show({kSentence}, {extent, extent, 50, 50});
    Painted();
    CGraphicTextCircle circle;
    circle.Assign(text_);
    circle.Paint(page_.context);
  }
  for (const double zoom : {0.0, 1e-12, 1e12, infinite}) {
    page_.context.matrix = CMatrix::Scale(zoom, zoom);
    Show({kSentence}, {0, 0, 50, 50});
    Painted();
  }
  CTextPage page;
  Show({kSentence}, {0, 0, 150, 100});
  text_.Paint(page.context);
  EXPECT_GT(page.Ink().count, 100) << "text can still be drawn";
}

}  // namespace graphics::test
