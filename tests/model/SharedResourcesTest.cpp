#include "foundation/Cast.h"
#include "foundation/Error.h"
#include "graphics/model/Base64Resources.h"
#include "graphics/model/SharedResources.h"
#include "tests/model/TestElement.h"

#include <gtest/gtest.h>

#include <functional>

namespace graphics {
namespace {

std::string ErrorOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const orlo::CException& error) {
    return error.what();
  }
  return "(no error)";
}

orlo::P<IReusableResource> ReadInto(CBase64Resources& store, const wxXmlNode& node, const wxString& type) {
  return store.ReadResource(node, type, orlo::makeObject<CTestElement>());
}

TEST(SharedResources, AreWrittenOnceAndReferredToAfterwards) {
  CTestElement element;
  CBase64Resources store;
  wxXmlNode first(wxXML_ELEMENT_NODE, "element");
  wxXmlNode second(wxXML_ELEMENT_NODE, "element");
  store.WriteResource(first, "rectangle", &element);
  store.WriteResource(second, "RECTANGLE", &element);
  const wxString id = wxString::Format("%lld", static_cast<long long>(element.GetUniqueId()));
  EXPECT_EQ(first.GetAttribute("unique"), id);
  EXPECT_EQ(first.GetAttribute("type"), "rectangle");
  EXPECT_NE(xml::FindChild(first, "center"), nullptr);
  EXPECT_EQ(ToText(second), "<element unique=\"" + id + "\" type=\"RECTANGLE\"/>");
}

TEST(SharedResources, AreNotWrittenUnderTwoTypes) {
  CTestElement element;
  CBase64Resources store;
  wxXmlNode node(wxXML_ELEMENT_NODE, "element");
  store.WriteResource(node, "rectangle", &element);
  EXPECT_EQ(ErrorOf([&] { store.WriteResource(node, "circle", &element); }),
            "Error adding unique resource. Type not equal");
}

TEST(SharedResources, HaveNothingToWriteForNull) {
  CBase64Resources store;
  wxXmlNode node(wxXML_ELEMENT_NODE, "element");
  store.WriteResource(node, "rectangle", nullptr);
  EXPECT_EQ(ToText(node), "<element/>");
}

TEST(SharedResources, WriteNoTypeThatIsEmpty) {
  CTestElement element;
  CBase64Resources store;
  wxXmlNode node(wxXML_ELEMENT_NODE, "element");
  store.WriteResource(node, "", &element);
  EXPECT_FALSE(node.HasAttribute("type"));
}

TEST(SharedResources, AreReadAtTheFirstOccurrenceOnly) {
  const auto document = ParseXml("<page><a unique='3' name='first'/><b unique='3' name='second'/></page>");
  const wxXmlNode* a = document->GetRoot()->GetChildren();
  CBase64Resources store;
  const auto first = ReadInto(store, *a, "rectangle");
  const auto second = ReadInto(store, *a->GetNext(), "Rectangle");
  EXPECT_EQ(first, second);
  EXPECT_EQ(orlo::cast<CTestElement>(second)->GetName(), "first");
}

TEST(SharedResources, AreReadAnewEachTimeWithoutAPositiveNumber) {
  const auto document = ParseXml("<page><a unique='0'/><a unique='-1'/><a/><a unique='x'/></page>");
  for (const wxXmlNode* node = document->GetRoot()->GetChildren(); node; node = node->GetNext()) {
    CBase64Resources store;
    EXPECT_FALSE(ReadInto(store, *node, "t") == ReadInto(store, *node, "t"));
  }
}

TEST(SharedResources, AreNotReadUnderTwoTypes) {
  const auto document = ParseXml("<a unique='3'/>");
  CBase64Resources store;
  ReadInto(store, *document->GetRoot(), "rectangle");
  EXPECT_EQ(ErrorOf([&] { ReadInto(store, *document->GetRoot(), "circle"); }),
            "Error get reuseable resource. Type different");
}

TEST(SharedResources, HaveTheTypeOfTheirNode) {
  CBase64Resources store;
  EXPECT_EQ(store.GetResourceType(*ParseXml("<a type='circle'/>")->GetRoot()), "circle");
  EXPECT_EQ(store.GetResourceType(*ParseXml("<a/>")->GetRoot()), "");
}

TEST(SharedResources, LiveAsLongAsTheStore) {
  int destroyed = 0;
  {
    CBase64Resources store;
    {
      auto element = orlo::makeObject<CTestElement>();
      element->destroyed = &destroyed;
      store.ReadResource(*ParseXml("<a unique='3'/>")->GetRoot(), "t", element);
    }
    EXPECT_EQ(destroyed, 0);
  }
  EXPECT_EQ(destroyed, 1);
}

TEST(SharedResources, CountEveryElementOfAFile) {
  class CNothing : public orlo::CObject, public virtual IReusableResource {
  public:
    void WriteToXml(wxXmlNode&, IResourceOutputStore&) const override {}
    void ReadFromXml(const wxXmlNode&, IResourceInputStore&) override {}
    std::int64_t GetUniqueId() const override { return 1; }
  };
  CBase64Resources store;
  const wxXmlNode node(wxXML_ELEMENT_NODE, "a");
  const orlo::P<IReusableResource> resource = orlo::makeObject<CNothing>();
  const wxString type;
  for (std::size_t i = 0; i < kMaxResourceCount; ++i) store.ReadResource(node, type, resource);
  EXPECT_EQ(ErrorOf([&] { store.ReadResource(node, type, resource); }), "There are more than 1000000 elements");
}

}  // namespace
}  // namespace graphics
