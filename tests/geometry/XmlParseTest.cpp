#include "graphics/geometry/XmlParse.h"

#include <gtest/gtest.h>
#include <wx/log.h>
#include <wx/mstream.h>

#include <string_view>

namespace graphics::xml {
namespace {

CParsed ParseText(std::string_view text, CParseLimits limits = {3, 5}) {
  return Parse({reinterpret_cast<const unsigned char*>(text.data()), text.size()}, limits);
}

/// The tree as one line: elements with attributes, texts in quotes, CDATA in brackets.
wxString Outline(const wxXmlNode* node) {
  wxString result;
  for (; node; node = node->GetNext()) {
    switch (node->GetType()) {
      case wxXML_TEXT_NODE:
        result += "'" + node->GetContent() + "'";
        break;
      case wxXML_CDATA_SECTION_NODE:
        result += "[" + node->GetContent() + "]";
        break;
      case wxXML_ELEMENT_NODE:
        result += "<" + node->GetName();
        for (const wxXmlAttribute* a = node->GetAttributes(); a; a = a->GetNext())
          result += " " + a->GetName() + "=" + a->GetValue();
        result += ">" + Outline(node->GetChildren()) + "</>";
        break;
      default:
        break;
    }
  }
  return result;
}

TEST(XmlParse, MakesTheTreeOfADocument) {
  const CParsed parsed = ParseText("<a x='1' y='2'><b>text</b><c><![CDATA[ raw ]]></c></a>");
  ASSERT_NE(parsed.document, nullptr);
  EXPECT_EQ(Outline(parsed.document->GetRoot()), "<a x=1 y=2><b>'text'</><c>[ raw ]</></>");
  EXPECT_EQ(parsed.problem, "");
}

TEST(XmlParse, MakesWhatTheToolkitMakes) {
  const std::string_view documents[] = {
      "<a/>",
      "<a>\n  <b/>\n  <c/>\n</a>",
      "<a>\n  text\n  more\n</a>",
      "<a> text </a>",
      "<a>one<b/>two<!-- no -->three<?pi no?>four</a>",
      "<a>&lt;&amp;&#228;\xC3\xA4 </a>",
      "<a><![CDATA[]]></a>",
      "<a>before<![CDATA[\n  in]]>after</a>",
      "<a><![CDATA[one]]><![CDATA[two]]></a>",
      "<?xml version='1.0' encoding='ISO-8859-1'?><a x='\xE4'>\xE4</a>",
      "<?xml version='1.0' encoding='windows-1252'?><a x='\x80'>\x80\xE4</a>",
      "<!DOCTYPE a><a/>",
      "<!-- before --><a/><!-- behind -->",
  };
  for (const std::string_view text : documents) {
    wxMemoryInputStream stream(text.data(), text.size());
    wxXmlDocument expected;
    ASSERT_TRUE(expected.Load(stream)) << text;
    const CParsed parsed = ParseText(text);
    ASSERT_NE(parsed.document, nullptr) << text << ": " << parsed.problem;
    EXPECT_EQ(Outline(parsed.document->GetRoot()).utf8_string(), Outline(expected.GetRoot()).utf8_string()) << text;
  }
}

TEST(XmlParse, KnowsTheLineOfEveryElement) {
  const CParsed parsed = ParseText("<a>\n<b/>\n\n<c/></a>");
  const wxXmlNode* b = parsed.document->GetRoot()->GetChildren();
  EXPECT_EQ(b->GetLineNumber(), 2);
  EXPECT_EQ(b->GetNext()->GetLineNumber(), 4);
  EXPECT_EQ(b->GetNext()->GetParent(), parsed.document->GetRoot());
}

TEST(XmlParse, TellsTheLineOfWhatIsNotWellFormed) {
  const CParsed parsed = ParseText("<a>\n<b></a>");
  EXPECT_EQ(parsed.document, nullptr);
  EXPECT_EQ(parsed.problem, "line 2: mismatched tag");
  EXPECT_FALSE(parsed.beyondLimit);
  EXPECT_EQ(ParseText("").document, nullptr);
  EXPECT_EQ(ParseText("<a/>junk").document, nullptr);
  EXPECT_EQ(ParseText("<?xml version='1.0' encoding='no-such-encoding'?><a/>").document, nullptr);
}

TEST(XmlParse, RefusesWhatNestsTooDeep) {
  EXPECT_NE(ParseText("<a><b><c/></b></a>").document, nullptr);
  const CParsed parsed = ParseText("<a>\n<b><c><d/></c></b></a>");
  EXPECT_EQ(parsed.document, nullptr);
  EXPECT_EQ(parsed.problem, "line 2: elements nest more than 3 deep");
  EXPECT_TRUE(parsed.beyondLimit);
}

TEST(XmlParse, RefusesWhatNestsAMillionDeepWithoutHarm) {
  std::string text;
  for (int level = 0; level < 1'000'000; ++level) text += "<a>";
  EXPECT_TRUE(ParseText(text).beyondLimit);
}

TEST(XmlParse, ReadsOneByteEncodings) {
  const CParsed parsed = ParseText("<?xml version='1.0' encoding='windows-1252'?><a name='caf\xE9'/>");
  ASSERT_NE(parsed.document, nullptr);
  EXPECT_EQ(parsed.document->GetRoot()->GetAttribute("name"), wxString(L"caf\u00E9"));
}

TEST(XmlParse, RefusesTooManyElements) {
  EXPECT_NE(ParseText("<a><b/><b/><b/><b/></a>").document, nullptr);
  EXPECT_EQ(ParseText("<a><b/><b/><b/><b/><b/></a>").problem, "line 1: more than 5 elements");
}

TEST(XmlParse, RefusesEntitiesThatTheDocumentDeclares) {
  const CParsed parsed = ParseText("<!DOCTYPE a [\n<!ENTITY e 'expanded'>]><a x='&e;'>&e;</a>");
  EXPECT_EQ(parsed.document, nullptr);
  EXPECT_EQ(parsed.problem, "line 2: entities are not allowed");
  EXPECT_TRUE(parsed.beyondLimit);
}

TEST(XmlParse, RefusesAttributesThatTheDocumentDeclares) {
  const CParsed parsed = ParseText("<!DOCTYPE a [\n<!ATTLIST a x CDATA 'long'>]><a/>");
  EXPECT_EQ(parsed.document, nullptr);
  EXPECT_EQ(parsed.problem, "line 2: attributes cannot be declared");
  EXPECT_TRUE(parsed.beyondLimit);
}

TEST(XmlParse, TakesLargeTextsAndManyAttributesInOneGo) {
  std::string text = "<a";
  for (int i = 0; i < 20'000; ++i) text += " x" + std::to_string(i) + "='1'";
  text += "><![CDATA[";
  for (int i = 0; i < 100'000; ++i) text += "a line of text in a large section\n";
  const CParsed parsed = ParseText(text + "]]></a>");
  ASSERT_NE(parsed.document, nullptr);
  EXPECT_EQ(parsed.document->GetRoot()->GetNodeContent().length(), 3'400'000U);
}

}  // namespace
}  // namespace graphics::xml
