#include "foundation/Cast.h"
#include "foundation/Error.h"
#include "foundation/wxutil/WXError.h"
#include "graphics/model/Base64Resources.h"
#include "tests/model/TestElement.h"

#include <gtest/gtest.h>

namespace graphics {
namespace {

class DocumentXml : public testing::Test {
protected:
  DocumentXml() { RegisterTestKinds(); }

  static orlo::P<CGraphicDocument> Read(const wxString& text) {
    auto document = orlo::makeObject<CGraphicDocument>();
    CBase64Resources store;
    document->ReadFromXml(*ParseXml(text)->GetRoot(), store);
    return document;
  }
  static wxString Write(CGraphicDocument& document) {
    CBase64Resources store;
    wxXmlNode node(wxXML_ELEMENT_NODE, "page");
    document.WriteToXml(node, store);
    return ToText(node);
  }
};

TEST_F(DocumentXml, HasAVersionAndItsBounds) {
  CGraphicDocument document;
  EXPECT_EQ(Write(document), "<page version=\"1\"><bounding-box x=\"0\" y=\"0\" width=\"0\" height=\"0\"/></page>");
}

TEST_F(DocumentXml, HasItsPartsInOrder) {
  CGraphicDocument document;
  document.SetContentBox({1, 2, 3, 4});
  document.Add(MakeElement({0, 0, 5, 5}, GraphicType::kCircle));
  document.Add(MakeElement({0, 0, 5, 5}, GraphicType::kRectangle));
  document.GetXDatas()->Set("data", orlo::makeObject<CIntXData>(5));
  const auto written = ParseXml(Write(document));
  wxString names;
  for (const wxXmlNode* child = written->GetRoot()->GetChildren(); child; child = child->GetNext())
    names += child->GetName() + " ";
  EXPECT_EQ(names, "bounding-box content-box circle rectangle xdata ");
}

TEST_F(DocumentXml, HasNoExtensionDataWithoutEntries) {
  CGraphicDocument document;
  document.GetXDatas()->Set("nothing", nullptr);
  EXPECT_FALSE(Write(document).Contains("xdata"));
}

TEST_F(DocumentXml, ComesBackAsItWasWritten) {
  CGraphicDocument document;
  document.SetContentBox({1, 2, 3, 4});
  document.Add(MakeElement({0, 0, 5, 5}, GraphicType::kCircle));
  document.Add(MakeElement({3, 4, 5, 6}, GraphicType::kRectangle));
  document.GetXDatas()->Set("data", orlo::makeObject<CIntXData>(5));
  const auto read = Read(Write(document));
  ASSERT_EQ(read->GetCount(), 2U);
  EXPECT_EQ(read->GetElement(0)->GetType(), GraphicType::kCircle);
  EXPECT_EQ(read->GetElement(1)->GetType(), GraphicType::kRectangle);
  EXPECT_EQ(read->GetElement(1)->GetBoundingRect(), (CDoubleRect{3, 4, 5, 6}));
  EXPECT_EQ(read->GetPageRect(), (CDoubleRect{1, 2, 3, 4}));
  EXPECT_EQ(orlo::cast<CIntXData>(read->GetXDatas()->Get("data"))->value, 5);
}

TEST_F(DocumentXml, IsReadWhateverItsOwnNameIs) {
  EXPECT_EQ(Read("<anything><rectangle/></anything>")->GetCount(), 1U);
}

TEST_F(DocumentXml, DoesNotTakeItsBoundsFromTheFile) {
  const auto document = Read(
      "<page><bounding-box x='1' y='1' width='999' height='999'/>"
      "<rectangle><center x='5' y='5'/><size width='2' height='2'/></rectangle></page>");
  EXPECT_EQ(document->GetBoundingBox(), (CDoubleRect{4, 4, 2, 2}));
}

TEST_F(DocumentXml, LosesItsContentBoxToAFileWithoutOne) {
  CGraphicDocument document;
  document.SetContentBox({1, 2, 3, 4});
  CBase64Resources store;
  document.ReadFromXml(*ParseXml("<page/>")->GetRoot(), store);
  EXPECT_FALSE(document.HasContentBox());
}

TEST_F(DocumentXml, SkipsChildrenThatAreNoElements) {
  const auto document = Read("<page>text<unknown/><xdata-more/><Rectangle/><bounding-box/><RECTANGLE/></page>");
  EXPECT_EQ(document->GetCount(), 2U);
}

TEST_F(DocumentXml, ReplacesTheElementsButGoesOnListeningToTheFormerOnes) {
  class CCounting : public CGraphicDocument {
  public:
    void OnGraphicChanged(CGraphicBase& element) override {
      ++count;
      CGraphicDocument::OnGraphicChanged(element);
    }
    int count = 0;
  };
  const auto former = MakeElement({0, 0, 5, 5});
  {
    CCounting document;
    document.Add(former);
    CBase64Resources store;
    document.ReadFromXml(*ParseXml("<page><rectangle/></page>")->GetRoot(), store);
    ASSERT_EQ(document.GetCount(), 1U);
    EXPECT_FALSE(document.GetElement(0) == former);
    document.count = 0;
    former->SetSize({1, 1});
    EXPECT_EQ(document.count, 1);
  }
  former->SetSize({2, 2});
}

TEST_F(DocumentXml, TakesTheTypeNameBeforeTheNodeName) {
  EXPECT_EQ(Read("<page><rectangle type-name='circle'/></page>")->GetElement(0)->GetType(), GraphicType::kCircle);
  EXPECT_EQ(Read("<page><rectangle type='circle'/></page>")->GetElement(0)->GetType(), GraphicType::kCircle);
  EXPECT_EQ(Read("<page><rectangle type='image' type-name='circle'/></page>")->GetElement(0)->GetType(),
            GraphicType::kCircle);
}

TEST_F(DocumentXml, RefusesAnUnknownTypeNameAndKeepsWhatCameBefore) {
  CGraphicDocument document;
  CBase64Resources store;
  const auto xml = ParseXml("<page><rectangle/><rectangle type-name='nobody-knows'/><rectangle/></page>");
  EXPECT_THROW(document.ReadFromXml(*xml->GetRoot(), store), wxutil::CWXError);
  EXPECT_EQ(document.GetCount(), 1U);
}

TEST_F(DocumentXml, RefusesTableContentSinceNothingMakesIt) {
  EXPECT_THROW(Read("<page><table-content/></page>"), wxutil::CWXError);
  EXPECT_EQ(Read("<page><Table-Content/></page>")->GetCount(), 0U);
}

TEST_F(DocumentXml, HasOneObjectWhereTheFileRefersToOne) {
  CGraphicDocument document;
  const auto element = MakeElement({0, 0, 5, 5});
  document.Add(element);
  document.Add(element);
  const wxString text = Write(document);
  const wxString id = wxString::Format("unique=\"%lld\"", static_cast<long long>(element->GetUniqueId()));
  EXPECT_TRUE(text.Contains("<rectangle " + id + " type=\"rectangle\"/>"));
  const auto read = Read(text);
  ASSERT_EQ(read->GetCount(), 2U);
  EXPECT_EQ(read->GetElement(0), read->GetElement(1));
}

TEST_F(DocumentXml, NestsAsDeepAsFiftyDocuments) {
  wxString text;
  for (int i = 0; i < 50; ++i) text += "<mirror><graphic-document>";
  for (int i = 0; i < 50; ++i) text += "</graphic-document></mirror>";
  EXPECT_EQ(Read("<page>" + text + "</page>")->GetCount(), 1U);
}

TEST_F(DocumentXml, RefusesToNestDeeper) {
  wxString text;
  for (int i = 0; i < 51; ++i) text += "<mirror><graphic-document>";
  for (int i = 0; i < 51; ++i) text += "</graphic-document></mirror>";
  try {
    Read("<page>\n" + text + "</page>");
    FAIL();
  } catch (const orlo::CException& error) {
    EXPECT_STREQ(error.what(), "Elements nest more than 50 deep in line 2");
  }
}

TEST_F(DocumentXml, RefusesAMirrorThatContainsItself) {
  try {
    Read(
        "<page><mirror unique='5' type='mirror'>\n<graphic-document><rectangle/><mirror unique='5' type='mirror'/>"
        "</graphic-document></mirror></page>");
    FAIL();
  } catch (const orlo::CException& error) {
    EXPECT_STREQ(error.what(), "Resource 5 of line 1 contains itself");
  }
}

TEST_F(DocumentXml, RefusesMirrorsThatContainOneAnother) {
  EXPECT_THROW(Read("<page><mirror unique='5'><graphic-document><mirror unique='6'><graphic-document>"
                    "<mirror unique='5'/></graphic-document></mirror></graphic-document></mirror></page>"),
               orlo::CException);
}

TEST_F(DocumentXml, ReleasesEverythingOfAFileThatItRefuses) {
  static int destroyed;
  destroyed = 0;
  RegisterElementKind(GraphicType::kMirror, [] {
    auto element = orlo::makeObject<CTestElement>(GraphicType::kMirror);
    element->destroyed = &destroyed;
    return orlo::P<CGraphicElement>(element);
  });
  EXPECT_THROW(Read("<page><mirror unique='5'><graphic-document><mirror unique='6'><graphic-document>"
                    "<mirror unique='5'/></graphic-document></mirror></graphic-document></mirror></page>"),
               orlo::CException);
  EXPECT_EQ(destroyed, 3);
}

TEST_F(DocumentXml, RefusesReferencesThatComeToMoreElementsThanCouldBePainted) {
  wxString text = "<rectangle unique='1'/>";
  for (int i = 2; i < 40; ++i)
    text = wxString::Format("<mirror unique='%d'><graphic-document>", i) + text +
           wxString::Format("<%s unique='%d'/></graphic-document></mirror>", i == 2 ? "rectangle" : "mirror", i - 1);
  try {
    Read("<page>" + text + "</page>");
    FAIL();
  } catch (const orlo::CException& error) {
    EXPECT_STREQ(error.what(), "There are more than 1000000 elements");
  }
}

TEST_F(DocumentXml, SurvivesNumbersOfAnyKind) {
  const auto document = Read(
      "<page><content-box x='nan' y='inf' width='-1e999' height='1e999'/>"
      "<rectangle rotation='1e300'><center x='nan' y='1e400'/><size width='-inf' height='nan'/></rectangle>"
      "<rectangle rotation='nan'><center x='1e308' y='-1e308'/><size width='1e308' height='1e308'/></rectangle>"
      "</page>");
  document->GetBoundingBox();
  document->GetPageRect();
  for (std::size_t i = 0; i < document->GetCount(); ++i) {
    const auto element = document->GetElement(i);
    element->Transform(CMatrix::Scale(2, 2));
    element->HitTest(1, 1);
    element->SetRotation(element->GetRotation());
    EXPECT_GE(element->GetRotation(), 0);
    EXPECT_LE(element->GetRotation(), 360);
  }
}

}  // namespace
}  // namespace graphics
