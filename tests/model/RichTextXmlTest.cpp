#include "graphics/model/RichTextXml.h"
#include "graphics/paint/Toolkit.h"

#include <gtest/gtest.h>
#include <wx/image.h>
#include <wx/mstream.h>
#include <wx/richtext/richtextbuffer.h>

#include <string>

namespace graphics {

namespace {

std::string Repeated(const std::string& text, int count) {
  std::string result;
  for (int i = 0; i < count; ++i) result += text;
  return result;
}

class RichTextXml : public testing::Test {
protected:
  RichTextXml() { wxInitAllImageHandlers(); }

  static std::unique_ptr<wxRichTextBuffer> Load(const std::string& body) {
    const std::string xml = "<?xml version=\"1.0\"?><richtext version=\"1.0.0.0\"><paragraphlayout>" + body +
                            "</paragraphlayout></richtext>";
    return LoadRichText({reinterpret_cast<const unsigned char*>(xml.data()), xml.size()});
  }
  static std::unique_ptr<wxRichTextBuffer> LoadRuns(const std::string& runs) {
    return Load("<paragraph>" + runs + "</paragraph>");
  }
  static std::string Saved(wxRichTextBuffer& text) {
    wxMemoryOutputStream stream;
    EXPECT_TRUE(SaveRichText(text, stream));
    std::string xml(stream.GetSize(), '\0');
    stream.CopyTo(xml.data(), xml.size());
    return xml;
  }
  static const wxRichTextAttr& StyleOf(const wxRichTextBuffer& text, std::size_t run) {
    return text.GetParagraphAtLine(0)->GetChild(run)->GetAttributes();
  }
  static std::string HexOfPicture(int width, int height) {
    wxMemoryOutputStream stream;
    wxImage(width, height).SaveFile(stream, wxBITMAP_TYPE_PNG);
    std::string bytes(stream.GetSize(), '\0');
    stream.CopyTo(bytes.data(), bytes.size());
    std::string hex;
    for (const char byte : bytes) hex += wxDecToHex(static_cast<unsigned char>(byte)).ToStdString();
    return hex;
  }
  static std::size_t CountChildren(const wxRichTextBuffer& text) { return text.GetParagraphAtLine(0)->GetChildCount(); }

  CToolkitLock lock_;
};

}  // namespace

TEST_F(RichTextXml, ReadsTheWeightsOfOldAndOfNewFiles) {
  const auto text = LoadRuns(
      "<text fontweight=\"90\">a</text><text fontweight=\"91\">b</text><text fontweight=\"92\">c</text>"
      "<text fontweight=\"400\">d</text><text fontweight=\"300\">e</text><text fontweight=\"700\">f</text>");
  ASSERT_NE(text, nullptr);
  for (const std::size_t first : {0U, 3U}) {
    EXPECT_EQ(StyleOf(*text, first).GetFontWeight(), wxFONTWEIGHT_NORMAL);
    EXPECT_EQ(StyleOf(*text, first + 1).GetFontWeight(), wxFONTWEIGHT_LIGHT);
    EXPECT_EQ(StyleOf(*text, first + 2).GetFontWeight(), wxFONTWEIGHT_BOLD);
  }
}

TEST_F(RichTextXml, WritesTodaysWeights) {
  const auto text = LoadRuns("<text fontweight=\"92\">bold</text>");
  EXPECT_NE(Saved(*text).find("fontweight=\"700\""), std::string::npos);
}

TEST_F(RichTextXml, ReadsWhatItWrites) {
  const auto text =
      LoadRuns("<text fontweight=\"700\" textcolor=\"#FF0000\">Žluť </text><text>and &lt;more&gt;</text>");
  ASSERT_NE(text, nullptr);
  const std::string xml = Saved(*text);
  const auto again = LoadRichText({reinterpret_cast<const unsigned char*>(xml.data()), xml.size()});
  ASSERT_NE(again, nullptr);
  EXPECT_EQ(again->GetText(), text->GetText());
  EXPECT_EQ(Saved(*again), xml);
}

TEST_F(RichTextXml, ReadsColoursInSmallLettersToo) {
  const auto text =
      LoadRuns("<text textcolor=\"#ff8a0c\" bgcolor=\"#Ab12eF\">a</text><text textcolor=\"#FF8A0C\">b</text>");
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(StyleOf(*text, 0).GetTextColour(), wxColour(255, 138, 12));
  EXPECT_EQ(StyleOf(*text, 0).GetBackgroundColour(), wxColour(0xAB, 0x12, 0xEF));
  EXPECT_EQ(StyleOf(*text, 1).GetTextColour(), wxColour(255, 138, 12));
}

TEST_F(RichTextXml, RefusesMoreThanAPagesTextMayBe) {
  EXPECT_NE(LoadRuns("<text>" + std::string(100'000, 'x') + "</text>"), nullptr);
  EXPECT_EQ(LoadRuns("<text>" + std::string(100'001, 'x') + "</text>"), nullptr);
  EXPECT_EQ(Load(Repeated("<paragraph><text>a</text></paragraph>", 5'000)), nullptr);
  EXPECT_EQ(Load(Repeated("<paragraph><textbox>", 5) + Repeated("</textbox></paragraph>", 5)), nullptr);
  EXPECT_NE(Load(Repeated("<paragraph><textbox>", 4) + Repeated("</textbox></paragraph>", 4)), nullptr);
  EXPECT_EQ(Load(Repeated("<paragraph><textbox>", 10'000) + Repeated("</textbox></paragraph>", 10'000)), nullptr);
}

TEST_F(RichTextXml, RefusesMoreFontsThanAMachineCanLookUp) {
  const auto fonts = [](int count) {
    std::string runs;
    for (int i = 1; i <= count; ++i) runs += "<text fontpointsize=\"" + std::to_string(i) + "\">a</text>";
    return runs;
  };
  EXPECT_NE(LoadRuns(fonts(99)), nullptr);
  EXPECT_EQ(LoadRuns(fonts(101)), nullptr);
}

TEST_F(RichTextXml, PullsNumbersIntoTheirRange) {
  const auto text = Load(
      "<paragraph leftindent=\"2000000000\" rightindent=\"-99999999999999999999\" linespacing=\"-3\">"
      "<text fontpointsize=\"100000000\">a</text><text fontpointsize=\"-5\">b</text></paragraph>");
  ASSERT_NE(text, nullptr);
  const wxRichTextAttr& paragraph = text->GetParagraphAtLine(0)->GetAttributes();
  EXPECT_EQ(paragraph.GetLeftIndent(), 65'535);
  EXPECT_EQ(paragraph.GetRightIndent(), -65'535);
  EXPECT_EQ(paragraph.GetLineSpacing(), 1);
  EXPECT_EQ(StyleOf(*text, 0).GetFontSize(), 1'000);
  EXPECT_EQ(StyleOf(*text, 1).GetFontSize(), 1);
}

TEST_F(RichTextXml, LeavesTextsAloneThatBeginWithADigit) {
  const auto text = Load(
      "<paragraph bullettext=\"1)\" parstyle=\"99999999\"><text fontface=\"8-bit\" "
      "url=\"70000\">a</text></paragraph>");
  ASSERT_NE(text, nullptr);
  const wxRichTextAttr& paragraph = text->GetParagraphAtLine(0)->GetAttributes();
  EXPECT_EQ(paragraph.GetBulletText(), "1)");
  EXPECT_EQ(paragraph.GetParagraphStyleName(), "99999999");
  EXPECT_EQ(StyleOf(*text, 0).GetFontFaceName(), "8-bit");
  EXPECT_EQ(StyleOf(*text, 0).GetURL(), "70000");
}

TEST_F(RichTextXml, ReadsSizesInPixelsAsPoints) {
  const auto text = LoadRuns(
      "<text fontpixelsize=\"16\">a</text><text fontpixelsize=\"-3\" fontpointsize=\"20\">b</text>"
      "<text fontpixelsize=\"99999999999\">c</text><text fontpixelsize=\"x\">d</text>");
  ASSERT_NE(text, nullptr);
  const auto sizeOf = [&](std::size_t run) { return StyleOf(*text, run).GetFontSize(); };
  EXPECT_EQ(sizeOf(0), 12);
  EXPECT_EQ(sizeOf(1), 1);
  EXPECT_EQ(sizeOf(2), 750);
  for (const std::size_t run : {0U, 1U, 2U, 3U}) EXPECT_FALSE(StyleOf(*text, run).HasFontPixelSize());
}

TEST_F(RichTextXml, KeepsPicturesOfAnyUsualSize) {
  const auto text = LoadRuns("<image imagetype=\"15\"><data>" + HexOfPicture(20, 10) + "</data></image><text>a</text>");
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(CountChildren(*text), 2U);
}

TEST_F(RichTextXml, LeavesOutPicturesThatAreDamagedOrTooLarge) {
  // The width and the height that the header claims are made 100,000.
  std::string huge = HexOfPicture(20, 10);
  huge.replace(32, 16, "000186A0000186A0");
  for (const std::string& picture : {std::string("<image imagetype=\"15\"><data>") + huge + "</data></image>",
                                     std::string("<image imagetype=\"15\"><data>zz</data></image>"),
                                     std::string("<image/>"), std::string("<image><data/></image>"),
                                     "<image imagetype=\"3\"><data>" + HexOfPicture(2, 2) + "</data></image>"}) {
    const auto text = LoadRuns(picture + "<text>a</text>");
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(CountChildren(*text), 1U) << picture.substr(0, 60);
  }
}

TEST_F(RichTextXml, LeavesOutPicturesBeyondWhatATextMayShow) {
  const std::string wide = "<image imagetype=\"15\" width=\"100000,4098\" height=\"100000,4098\"><data>" +
                           HexOfPicture(2, 2) + "</data></image>";
  const auto text = LoadRuns(wide + wide + "<text>a</text>");
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(CountChildren(*text), 2U);
}

TEST_F(RichTextXml, LeavesOutTablesThatLieAboutTheirCells) {
  for (const char* table :
       {"<table rows=\"1000000\" cols=\"1000000\"><cell/></table>", "<table><cell/></table>",
        "<table rows=\"-1\" cols=\"-1\"><cell/></table>", "<table rows=\"2\" cols=\"2\"><cell/></table>"}) {
    const auto text = LoadRuns(table + std::string("<text>a</text>"));
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(CountChildren(*text), 1U) << table;
  }
  const auto whole = LoadRuns("<table rows=\"1\" cols=\"2\"><cell/><cell/></table>");
  ASSERT_NE(whole, nullptr);
  EXPECT_EQ(CountChildren(*whole), 1U);
}

TEST_F(RichTextXml, TakesNothingButCellsForCells) {
  const auto text = LoadRuns("<table rows=\"1\" cols=\"2\"><cell/>between<cell/><text>more</text></table>");
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(CountChildren(*text), 1U);
}

TEST_F(RichTextXml, PassesOverStyleSheetsAndWhatItDoesNotKnow) {
  const std::string xml =
      "<richtext><stylesheet name=\"s\"><paragraphstyle name=\"p\" basestyle=\"p\" "
      "nextstyle=\"p\"/></stylesheet><thing/>"
      "<paragraphlayout><paragraph parstyle=\"p\"><what/><text "
      "characterstyle=\"c\">a</text></paragraph></paragraphlayout>"
      "</richtext>";
  const auto text = LoadRichText({reinterpret_cast<const unsigned char*>(xml.data()), xml.size()});
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(text->GetStyleSheet(), nullptr);
  EXPECT_EQ(text->GetText(), "a");
}

TEST_F(RichTextXml, LeavesOutSymbolsThatAreNoCharacters) {
  const auto text =
      LoadRuns("<symbol>8226</symbol><symbol>-5</symbol><symbol>55296</symbol><symbol>99999999</symbol><text>a</text>");
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(text->GetText(), wxString::FromUTF8("•a"));
}

}  // namespace graphics
