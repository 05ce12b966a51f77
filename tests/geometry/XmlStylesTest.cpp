#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlStyles.h"
#include "graphics/paint/Toolkit.h"

#include <gtest/gtest.h>

namespace graphics::xml {
namespace {

class XmlStyles : public testing::Test {
protected:
  XmlStyles() { StartToolkit(); }

  wxXmlNode node_{wxXML_ELEMENT_NODE, "node"};
};

TEST_F(XmlStyles, KeepColoursInFourNumbers) {
  WriteColour(node_, "color", wxColour(1, 2, 3, 4));
  const wxXmlNode* child = FindChild(node_, "color");
  EXPECT_EQ(child->GetAttribute("red"), "1");
  EXPECT_EQ(child->GetAttribute("green"), "2");
  EXPECT_EQ(child->GetAttribute("blue"), "3");
  EXPECT_EQ(child->GetAttribute("alpha"), "4");
  wxColour colour;
  EXPECT_TRUE(ReadColour(node_, "color", colour));
  EXPECT_EQ(colour, wxColour(1, 2, 3, 4));
}

TEST_F(XmlStyles, ReadAColourWithoutAlphaAsTransparent) {
  wxXmlNode& child = AppendChild(node_, "color");
  SetProperty(child, "red", "200");
  wxColour colour(9, 9, 9, 9);
  EXPECT_TRUE(ReadColour(node_, "color", colour));
  EXPECT_EQ(colour, wxColour(200, 0, 0, 0));
}

TEST_F(XmlStyles, BringColourChannelsIntoTheirRange) {
  wxXmlNode& child = AppendChild(node_, "color");
  SetProperty(child, "red", "300");
  SetProperty(child, "green", "-1");
  SetProperty(child, "blue", "blue");
  SetProperty(child, "alpha", "255");
  wxColour colour;
  EXPECT_TRUE(ReadColour(node_, "color", colour));
  EXPECT_EQ(colour, wxColour(255, 0, 0, 255));
}

TEST_F(XmlStyles, KeepBrushes) {
  WriteBrush(node_, "brush", wxBrush(wxColour(1, 2, 3), wxBRUSHSTYLE_CROSS_HATCH));
  wxBrush brush;
  EXPECT_TRUE(ReadBrush(node_, "brush", brush));
  EXPECT_EQ(brush.GetColour(), wxColour(1, 2, 3));
  EXPECT_EQ(brush.GetStyle(), wxBRUSHSTYLE_CROSS_HATCH);
}

TEST_F(XmlStyles, HaveTheNumbersOfTheToolkit) {
  WriteBrush(node_, "brush", *wxTRANSPARENT_BRUSH);
  WritePen(node_, "pen", wxPen(*wxRED, 3, wxPENSTYLE_DOT));
  EXPECT_EQ(FindChild(node_, "brush")->GetAttribute("style"), "106");
  EXPECT_EQ(FindChild(node_, "pen")->GetAttribute("style"), "101");
  EXPECT_EQ(FindChild(node_, "pen")->GetAttribute("width"), "3");
}

TEST_F(XmlStyles, KeepPens) {
  WritePen(node_, "pen", wxPen(wxColour(1, 2, 3, 128), 7, wxPENSTYLE_SHORT_DASH));
  wxPen pen;
  EXPECT_TRUE(ReadPen(node_, "pen", pen));
  EXPECT_EQ(pen.GetColour(), wxColour(1, 2, 3, 128));
  EXPECT_EQ(pen.GetStyle(), wxPENSTYLE_SHORT_DASH);
  EXPECT_EQ(pen.GetWidth(), 7);
}

TEST_F(XmlStyles, LeaveTheStyleWhereTheNumberIsNone) {
  for (const char* number : {"7", "-1", "110", "2147483647", "red"}) {
    wxXmlNode parent(wxXML_ELEMENT_NODE, "parent");
    SetProperty(AppendChild(parent, "brush"), "style", number);
    wxXmlNode& penNode = AppendChild(parent, "pen");
    SetProperty(penNode, "style", number);
    SetProperty(penNode, "width", "-5");
    wxBrush brush(*wxRED, wxBRUSHSTYLE_CROSS_HATCH);
    wxPen pen(*wxRED, 2, wxPENSTYLE_DOT);
    EXPECT_TRUE(ReadBrush(parent, "brush", brush));
    EXPECT_TRUE(ReadPen(parent, "pen", pen));
    EXPECT_EQ(brush.GetStyle(), wxBRUSHSTYLE_CROSS_HATCH) << number;
    EXPECT_EQ(brush.GetColour(), *wxRED);
    EXPECT_EQ(pen.GetStyle(), wxPENSTYLE_DOT) << number;
    EXPECT_EQ(pen.GetWidth(), 0);
  }
}

TEST_F(XmlStyles, KeepFonts) {
  WriteFont(node_, "font", wxFontInfo(14).FaceName("DejaVu Serif").Italic().Bold().Underlined());
  const wxXmlNode* child = FindChild(node_, "font");
  EXPECT_EQ(child->GetAttribute("name"), "DejaVu Serif");
  EXPECT_EQ(child->GetAttribute("pointsize"), "14");
  EXPECT_EQ(child->GetAttribute("style"), "93");
  EXPECT_EQ(child->GetAttribute("weight"), "92");
  EXPECT_EQ(child->GetAttribute("underlined"), "true");
  wxFont font;
  EXPECT_TRUE(ReadFont(node_, "font", font));
  EXPECT_EQ(font.GetFaceName(), "DejaVu Serif");
  EXPECT_EQ(font.GetPointSize(), 14);
  EXPECT_EQ(font.GetStyle(), wxFONTSTYLE_ITALIC);
  EXPECT_EQ(font.GetWeight(), wxFONTWEIGHT_BOLD);
  EXPECT_TRUE(font.GetUnderlined());
}

TEST_F(XmlStyles, HaveTheFontWeightsOfPageFiles) {
  const struct {
    const char* number;
    wxFontWeight weight;
  } weights[] = {{"90", wxFONTWEIGHT_NORMAL}, {"91", wxFONTWEIGHT_LIGHT}, {"92", wxFONTWEIGHT_BOLD}};
  for (const auto& [number, weight] : weights) {
    wxXmlNode parent(wxXML_ELEMENT_NODE, "parent");
    SetProperty(AppendChild(parent, "font"), "weight", number);
    wxFont font;
    EXPECT_TRUE(ReadFont(parent, "font", font));
    EXPECT_EQ(font.GetWeight(), weight) << number;
    WriteFont(parent, "again", font);
    EXPECT_EQ(FindChild(parent, "again")->GetAttribute("weight"), number);
  }
}

TEST_F(XmlStyles, KeepTheRestOfAFontWhoseFaceIsNotInstalled) {
  wxXmlNode& child = AppendChild(node_, "font");
  SetProperty(child, "name", "No Such Face");
  SetProperty(child, "pointsize", "21");
  wxFont font(wxFontInfo(9).Italic());
  EXPECT_TRUE(ReadFont(node_, "font", font));
  EXPECT_TRUE(font.IsOk());
  EXPECT_EQ(font.GetFaceName(), "No Such Face");
  EXPECT_EQ(font.GetPointSize(), 21);
  EXPECT_EQ(font.GetStyle(), wxFONTSTYLE_ITALIC);
}

TEST_F(XmlStyles, SurviveAFontOfNonsense) {
  wxXmlNode& child = AppendChild(node_, "font");
  SetProperty(child, "name", "");
  SetProperty(child, "pointsize", "2147483647");
  SetProperty(child, "style", "12345");
  SetProperty(child, "weight", "-7");
  wxFont font(wxFontInfo(9).Italic());
  EXPECT_TRUE(ReadFont(node_, "font", font));
  EXPECT_TRUE(font.IsOk());
  EXPECT_EQ(font.GetPointSize(), 2000);
  EXPECT_EQ(font.GetStyle(), wxFONTSTYLE_ITALIC);
  EXPECT_EQ(font.GetWeight(), wxFONTWEIGHT_NORMAL);
}

TEST_F(XmlStyles, KeepGradients) {
  WriteGradient(node_, "gradient", {wxColour(1, 2, 3, 4), wxColour(5, 6, 7, 8), true});
  CGradient gradient;
  EXPECT_TRUE(ReadGradient(node_, "gradient", gradient));
  EXPECT_EQ(gradient.start, wxColour(1, 2, 3, 4));
  EXPECT_EQ(gradient.end, wxColour(5, 6, 7, 8));
  EXPECT_TRUE(gradient.ok);
}

TEST_F(XmlStyles, LeaveTheTargetAloneWhereTheChildIsMissing) {
  wxColour colour(1, 2, 3, 4);
  wxBrush brush(*wxRED);
  wxPen pen(*wxRED, 3);
  wxFont font(wxFontInfo(17));
  CGradient gradient{*wxRED, *wxBLUE, true};
  EXPECT_FALSE(ReadColour(node_, "none", colour));
  EXPECT_FALSE(ReadBrush(node_, "none", brush));
  EXPECT_FALSE(ReadPen(node_, "none", pen));
  EXPECT_FALSE(ReadFont(node_, "none", font));
  EXPECT_FALSE(ReadGradient(node_, "none", gradient));
  EXPECT_EQ(colour, wxColour(1, 2, 3, 4));
  EXPECT_EQ(brush, wxBrush(*wxRED));
  EXPECT_EQ(pen.GetWidth(), 3);
  EXPECT_EQ(font.GetPointSize(), 17);
  EXPECT_EQ(gradient.end, *wxBLUE);
}

TEST_F(XmlStyles, CanBeWrittenWithoutAnythingInThem) {
  WriteColour(node_, "color", wxNullColour);
  WriteBrush(node_, "brush", wxNullBrush);
  WritePen(node_, "pen", wxNullPen);
  WriteFont(node_, "font", wxNullFont);
  wxBrush brush;
  EXPECT_TRUE(ReadBrush(node_, "brush", brush));
  EXPECT_TRUE(brush.IsTransparent());
}

}  // namespace
}  // namespace graphics::xml
