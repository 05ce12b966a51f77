#include "graphics/geometry/XmlGeometry.h"
#include "graphics/geometry/XmlNode.h"

#include <gtest/gtest.h>

namespace graphics::xml {
namespace {

TEST(XmlGeometry, ComesBackAsItWasWritten) {
  wxXmlNode node(wxXML_ELEMENT_NODE, "node");
  CMargins margins{1, 2, 3, 4, 0.1, 0.2, 0.3, 0.4};
  WritePoint(node, "pixel", wxPoint(-3, 4));
  WritePoint(node, "point", CDoublePoint(1.5, -2.5));
  WriteSize(node, "size", {3.25, 4});
  WriteRect(node, "rect", {1, 2, 3.5, 4.5});
  WriteMargins(node, "margins", margins);

  wxPoint pixel;
  CDoublePoint point;
  CDoubleSize size;
  CDoubleRect rect;
  CMargins readMargins;
  EXPECT_TRUE(ReadPoint(node, "pixel", pixel));
  EXPECT_TRUE(ReadPoint(node, "point", point));
  EXPECT_TRUE(ReadSize(node, "size", size));
  EXPECT_TRUE(ReadRect(node, "rect", rect));
  EXPECT_TRUE(ReadMargins(node, "margins", readMargins));
  EXPECT_EQ(pixel, wxPoint(-3, 4));
  EXPECT_EQ(point, CDoublePoint(1.5, -2.5));
  EXPECT_EQ(size, (CDoubleSize{3.25, 4}));
  EXPECT_EQ(rect, (CDoubleRect{1, 2, 3.5, 4.5}));
  EXPECT_EQ(readMargins, margins);
}

TEST(XmlGeometry, NamesTheMarginsOfEachSide) {
  wxXmlNode node(wxXML_ELEMENT_NODE, "node");
  WriteMargins(node, "margins", {1, 2, 3, 4, 0.1, 0.2, 0.3, 0.4});
  const wxXmlNode* child = FindChild(node, "margins");
  EXPECT_EQ(child->GetAttribute("top"), "1");
  EXPECT_EQ(child->GetAttribute("left"), "2");
  EXPECT_EQ(child->GetAttribute("right"), "3");
  EXPECT_EQ(child->GetAttribute("bottom"), "4");
  EXPECT_EQ(child->GetAttribute("top-factor"), "0.1");
  EXPECT_EQ(child->GetAttribute("left-factor"), "0.2");
  EXPECT_EQ(child->GetAttribute("right-factor"), "0.3");
  EXPECT_EQ(child->GetAttribute("bottom-factor"), "0.4");
}

TEST(XmlGeometry, LeavesTheTargetAloneWhereTheChildIsMissing) {
  const wxXmlNode node(wxXML_ELEMENT_NODE, "node");
  wxPoint pixel(1, 2);
  CDoublePoint point(1, 2);
  CDoubleSize size{3, 4};
  CDoubleRect rect{1, 2, 3, 4};
  CMargins margins{1, 2, 3, 4, 5, 6, 7, 8};
  EXPECT_FALSE(ReadPoint(node, "pixel", pixel));
  EXPECT_FALSE(ReadPoint(node, "point", point));
  EXPECT_FALSE(ReadSize(node, "size", size));
  EXPECT_FALSE(ReadRect(node, "rect", rect));
  EXPECT_FALSE(ReadMargins(node, "margins", margins));
  EXPECT_EQ(pixel, wxPoint(1, 2));
  EXPECT_EQ(point, CDoublePoint(1, 2));
  EXPECT_EQ(size, (CDoubleSize{3, 4}));
  EXPECT_EQ(rect, (CDoubleRect{1, 2, 3, 4}));
  EXPECT_EQ(margins, (CMargins{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST(XmlGeometry, LeavesACoordinateAloneThatTheChildLacks) {
  wxXmlNode node(wxXML_ELEMENT_NODE, "node");
  SetProperty(AppendChild(node, "point"), "x", "9");
  CDoublePoint point(1, 2);
  EXPECT_TRUE(ReadPoint(node, "point", point));
  EXPECT_EQ(point, CDoublePoint(9, 2));
}

}  // namespace
}  // namespace graphics::xml
