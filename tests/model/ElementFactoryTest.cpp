#include "foundation/wxutil/WXError.h"
#include "graphics/model/ElementFactory.h"
#include "graphics/model/GraphicType.h"
#include "tests/model/TestElement.h"

#include <gtest/gtest.h>

#include <functional>

namespace graphics {
namespace {

wxString ErrorOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const wxutil::CWXError& error) {
    return error.getWxMessage();
  }
  return "(no error)";
}

/// Makes elements of the names it was given and counts how often it is asked.
class CTestFactory : public orlo::CObject, public virtual IGraphicElementFactory {
public:
  explicit CTestFactory(std::vector<wxString> known) : names(std::move(known)) {}

  orlo::P<CGraphicElement> CreateElement(const wxString& typeName) override {
    ++asked;
    if (std::find(names.begin(), names.end(), typeName) == names.end()) return nullptr;
    auto element = orlo::makeObject<CTestElement>(GraphicType::kStateButton);
    element->typeName = typeName;
    return element;
  }

  std::vector<wxString> names;
  int asked = 0;
};

struct CTestFactories {
  orlo::P<CTestFactory> first = orlo::makeObject<CTestFactory>(std::vector<wxString>{"animation-test"});
  orlo::P<CTestFactory> second = orlo::makeObject<CTestFactory>(std::vector<wxString>{"movie-test", ""});
};

CTestFactories& Factories() {
  static CTestFactories* const factories = [] {
    auto* made = new CTestFactories;
    RegisterFactory(made->first);
    RegisterFactory(made->second);
    return made;
  }();
  return *factories;
}

TEST(GraphicType, HasNineteenNamesThatLeadBackToTheirNumbers) {
  const char* const names[] = {"base",  "paper",        "image",     "text",   "text-circle", "table",     "line",
                               "point", "circle",       "rectangle", "shape",  "arrow",       "dimension", "custom",
                               "dummy", "state-button", "animation", "mirror", "label"};
  ASSERT_EQ(std::size(names), 19U);
  for (std::int32_t type = 0; type < 19; ++type) {
    EXPECT_EQ(GraphicTypeToXml(type), names[type]);
    EXPECT_EQ(GraphicTypeFromXml(wxString(names[type]).Upper()), type);
    EXPECT_TRUE(IsGraphicType(names[type]));
  }
  EXPECT_FALSE(IsGraphicType("table-content"));
  EXPECT_FALSE(IsGraphicType(""));
}

TEST(GraphicType, RefusesNamesAndNumbersThatAreNone) {
  EXPECT_EQ(ErrorOf([] { GraphicTypeFromXml("rhombus"); }), "GraphicTypeFromXml. Unknwown type:rhombus");
  EXPECT_THROW(GraphicTypeToXml(19), wxutil::CWXError);
  EXPECT_THROW(GraphicTypeToXml(-1), wxutil::CWXError);
}

TEST(GraphicType, HasNamesForDisplay) {
  EXPECT_EQ(GetGraphicTypeName(GraphicType::kTextCircle), "Circular Text");
  EXPECT_EQ(GetGraphicTypeName(GraphicType::kStateButton), "Button");
  EXPECT_EQ(GetGraphicTypeName(9), "Unknown");
  EXPECT_EQ(GetGraphicTypeName(0), "Unknown");
  EXPECT_EQ(GetGraphicTypeName(77), "Unknown");
}

TEST(ElementFactory, MakesPlainKindsWithoutRegardToCase) {
  RegisterTestKinds();
  EXPECT_EQ(NewInstance("IMAGE")->GetType(), GraphicType::kImage);
  EXPECT_EQ(NewInstanceOfType(GraphicType::kCircle)->GetType(), GraphicType::kCircle);
}

TEST(ElementFactory, MakesANewElementEachTime) {
  RegisterTestKinds();
  EXPECT_FALSE(NewInstance("image") == NewInstance("image"));
}

TEST(ElementFactory, RefusesKindsThatNoClassStandsFor) {
  for (const char* name : {"base", "custom", "animation", "Custom"})
    EXPECT_EQ(ErrorOf([&] { NewInstance(name); }), "CSheetItemFormat.NewInstance unknwown type") << name;
  EXPECT_EQ(ErrorOf([] { NewInstanceOfType(GraphicType::kCustom); }), "CSheetItemFormat.NewInstance unknwown type");
}

TEST(ElementFactory, RefusesKindsThatNobodyHasRegistered) {
  EXPECT_EQ(ErrorOf([] { NewInstance("Text"); }), "CSheetItemFormat.NewInstance unknwown type: text");
}

TEST(ElementFactory, DoesNotRegisterKindsThatNoClassStandsFor) {
  RegisterElementKind(GraphicType::kCustom, MakeTestElement<GraphicType::kCustom>);
  RegisterElementKind(-1, MakeTestElement<0>);
  RegisterElementKind(19, MakeTestElement<0>);
  EXPECT_THROW(NewInstance("custom"), wxutil::CWXError);
}

TEST(ElementFactory, AsksTheRegisteredFactoriesInOrder) {
  CTestFactories& factories = Factories();
  factories.first->asked = factories.second->asked = 0;
  EXPECT_EQ(NewInstance("movie-test")->GetTypeName(), "movie-test");
  EXPECT_EQ(factories.first->asked, 1);
  EXPECT_EQ(factories.second->asked, 1);
  EXPECT_EQ(NewInstance("animation-test")->GetTypeName(), "animation-test");
  EXPECT_EQ(factories.first->asked, 2);
  EXPECT_EQ(factories.second->asked, 1);
}

TEST(ElementFactory, DoesNotAskThemForPlainKinds) {
  RegisterTestKinds();
  CTestFactories& factories = Factories();
  factories.first->asked = 0;
  NewInstance("image");
  EXPECT_THROW(NewInstance("animation"), wxutil::CWXError);
  EXPECT_EQ(factories.first->asked, 0);
}

TEST(ElementFactory, AsksThemForTheEmptyName) {
  Factories();
  EXPECT_EQ(NewInstance("")->GetType(), GraphicType::kStateButton);
}

TEST(ElementFactory, RefusesANameThatNobodyKnows) {
  Factories();
  EXPECT_EQ(ErrorOf([] { NewInstance("rhombus"); }), "CSheetItemFormat.NewInstance unknwown type: rhombus");
}

}  // namespace
}  // namespace graphics
