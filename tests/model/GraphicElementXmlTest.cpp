#include "graphics/model/Base64Resources.h"
#include "tests/model/TestElement.h"

#include <gtest/gtest.h>

namespace graphics {
namespace {

wxString Write(const CGraphicElement& element) {
  CBase64Resources store;
  wxXmlNode node(wxXML_ELEMENT_NODE, "element");
  element.WriteToXml(node, store);
  return ToText(node);
}

void Read(CGraphicElement& element, const wxString& text) {
  CBase64Resources store;
  const auto document = ParseXml(text);
  element.ReadFromXml(*document->GetRoot(), store);
}

TEST(ElementXml, HasOnlyWhatIsAlwaysWrittenForANewElement) {
  EXPECT_EQ(Write(CTestElement()),
            "<element coloured=\"true\" rotation=\"0\" visible=\"true\"><center x=\"0\" y=\"0\"/>"
            "<size width=\"0\" height=\"0\"/></element>");
}

TEST(ElementXml, HasEverythingThatAnElementCanHold) {
  CTestElement element;
  element.SetName("n");
  element.SetCenter({1.5, 2});
  element.SetSize({3, 4});
  element.SetColoured(false);
  element.SetMirror(0, true);
  element.SetMirror(1, true);
  element.SetRotation(30);
  element.SetVisible(false);
  element.SetModified(true);
  element.SetContentId("c");
  element.SetContentIndex(2);
  element.SetTextId("t");
  element.SetTag("b", true);
  element.SetTag("a", true);
  element.SetGroup(7, true);
  EXPECT_EQ(Write(element),
            "<element name=\"n\" coloured=\"false\" mirror-x=\"true\" mirror-y=\"true\" rotation=\"30\" "
            "visible=\"false\" modified=\"true\" content-id=\"c\" content-index=\"2\" text-id=\"t\">"
            "<center x=\"1.5\" y=\"2\"/><size width=\"3\" height=\"4\"/><tags><a/><b/></tags>"
            "<groups><group nr=\"7\"/></groups></element>");
}

TEST(ElementXml, ComesBackAsItWasWritten) {
  CTestElement element;
  element.SetName("Größe");
  element.SetCenter({1.5, 2});
  element.SetSize({3, 4});
  element.SetColoured(false);
  element.SetMirror(1, true);
  element.SetRotation(30);
  element.SetVisible(false);
  element.SetModified(true);
  element.SetContentId("c");
  element.SetContentIndex(2);
  element.SetTextId("t");
  element.SetTag("a", true);
  element.SetGroup(7, true);
  CTestElement read;
  Read(read, Write(element));
  EXPECT_EQ(Write(read), Write(element));
}

TEST(ElementXml, LeavesWhatIsMissingAsItIs) {
  CTestElement element;
  element.SetName("n");
  element.SetCenter({1, 2});
  element.SetSize({3, 4});
  element.SetMirror(0, true);
  element.SetRotation(30);
  element.SetVisible(false);
  element.SetColoured(false);
  element.SetContentIndex(2);
  element.SetTag("a", true);
  element.SetGroup(7, true);
  const wxString before = Write(element);
  Read(element, "<element/>");
  EXPECT_EQ(Write(element), before);
}

TEST(ElementXml, KeepsFractionsOfADegreeUntilTheRotationIsSet) {
  CTestElement element;
  Read(element, "<element rotation='12.5'/>");
  EXPECT_EQ(element.GetRotation(), 12.5);
  element.SetRotation(element.GetRotation());
  EXPECT_EQ(element.GetRotation(), 12);
  Read(element, "<element rotation='-725.5'/>");
  EXPECT_EQ(element.GetRotation(), -725.5);
}

TEST(ElementXml, IsColouredOnlyForTheWordTrueInAnyCase) {
  CTestElement element;
  Read(element, "<element coloured='1'/>");
  EXPECT_FALSE(element.IsColoured());
  Read(element, "<element coloured='TRUE'/>");
  EXPECT_TRUE(element.IsColoured());
}

TEST(ElementXml, LosesATagThatIsNotSet) {
  CTestElement element;
  element.SetTag("gone", false);
  EXPECT_FALSE(Write(element).Contains("tags"));
  element.SetTag("kept", true);
  CTestElement read;
  Read(read, Write(element));
  EXPECT_EQ(read.GetTags(), (CGraphicElement::TagMap{{"kept", true}}));
}

TEST(ElementXml, ReplacesTagsAndGroupsByThoseOfTheNode) {
  CTestElement element;
  element.SetTag("old", true);
  element.SetGroup(1, true);
  Read(element, "<element><tags><new/></tags><groups><GROUP NR='3'/></groups></element>");
  EXPECT_EQ(element.GetTags(), (CGraphicElement::TagMap{{"new", true}}));
  EXPECT_EQ(element.GetGroups(), (CGraphicElement::GroupMap{{3, true}}));
}

TEST(ElementXml, DropsGroupsWithoutAPositiveNumber) {
  CTestElement element;
  Read(element,
       "<element><groups><group nr='0'/><group nr='-4'/><group/><group nr='x'/><other nr='5'/><group nr='2'/></groups>"
       "</element>");
  EXPECT_EQ(element.GetGroups(), (CGraphicElement::GroupMap{{2, true}}));
}

TEST(ElementXml, HasNoContentIndexThatIsNotPositive) {
  CTestElement element;
  element.SetContentIndex(0);
  EXPECT_FALSE(Write(element).Contains("content-index"));
  element.SetContentIndex(-3);
  EXPECT_FALSE(Write(element).Contains("content-index"));
}

TEST(ElementXml, IsReadWithoutRegardToCaseAndTakesTheFirstChildOfAName) {
  CTestElement element;
  Read(element, "<element NAME='n' Content-Index='4'><CENTER X='1' Y='2'/><center x='8' y='9'/></element>");
  EXPECT_EQ(element.GetName(), "n");
  EXPECT_EQ(element.GetContentIndex(), 4);
  EXPECT_EQ(element.GetCenter(), CDoublePoint(1, 2));
}

TEST(ElementXml, ReadsZeroForADoubleThatDoesNotParseAndNothingForAnInteger) {
  CTestElement element;
  element.SetCenter({5, 6});
  element.SetContentIndex(3);
  Read(element, "<element content-index='x'><center x='left' y='7'/></element>");
  EXPECT_EQ(element.GetCenter(), CDoublePoint(0, 7));
  EXPECT_EQ(element.GetContentIndex(), 3);
}

TEST(ElementXml, TellsNobodyOfTheRead) {
  class CListener : public IGraphicListener {
  public:
    void OnGraphicChanged(CGraphicBase&) override { ++count; }
    int count = 0;
  } listener;
  CTestElement element;
  element.AddListener(&listener);
  Read(element, "<element rotation='10'><center x='1' y='2'/><size width='3' height='4'/></element>");
  EXPECT_EQ(listener.count, 0);
}

}  // namespace
}  // namespace graphics
