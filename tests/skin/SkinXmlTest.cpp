#include "foundation/Cast.h"
#include "foundation/Error.h"
#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlValues.h"
#include "graphics/model/Base64Resources.h"
#include "graphics/skin/ButtonSkin.h"
#include "graphics/skin/ShapeSkin.h"
#include "tests/model/TestElement.h"

#include <gtest/gtest.h>

namespace graphics::skin {

namespace {

class SkinXml : public testing::Test {
protected:
  wxString Written(const CSkin& skin) {
    wxXmlNode node(wxXML_ELEMENT_NODE, "skin");
    skin.WriteToXml(node, *store_);
    return ToText(node);
  }
  /// Read as the owner of a node does it: the store knows the type, and gives the skin to use.
  orlo::P<CSkin> Shared(const wxXmlNode& node) {
    const wxString type = store_->GetResourceType(node);
    return orlo::P<CSkin>(orlo::cast<CSkin>(store_->ReadResource(node, type, CreateSkin(type)).get()));
  }
  void Read(CSkin& skin, const wxString& text) { skin.ReadFromXml(*ParseXml(text)->GetRoot(), *store_); }

private:
  CToolkitLock lock_;

protected:
  const orlo::P<CBase64Resources> store_ = orlo::makeObject<CBase64Resources>();
};

TEST_F(SkinXml, HoldsIdIdentityAndStates) {
  const CShapeSkin skin("oval");
  const wxString unique = wxString::Format("%lld", static_cast<long long>(skin.GetUniqueId()));
  EXPECT_EQ(Written(skin), "<skin id=\"oval\" unique=\"" + unique +
                               "\"><states><normal name=\"normal\"><layers/></normal></states></skin>");
}

TEST_F(SkinXml, HoldsAllStatesInTheirOrder) {
  const wxString text = Written(CButtonSkin(""));
  std::size_t last = 0;
  for (const char* const state : {"<hover ", "<hover_low ", "<down ", "<disabled ", "<normal ", "<selected "}) {
    const std::size_t found = text.find(state);
    ASSERT_NE(found, wxString::npos) << state;
    EXPECT_GT(found, last) << state;
    last = found;
  }
}

TEST_F(SkinXml, BringsBackWhatWasWritten) {
  const CButtonSkin skin("<round> & \"blue\"");
  CButtonSkin copy("other");
  Read(copy, Written(skin));
  EXPECT_EQ(copy.GetId(), skin.GetId());
  EXPECT_EQ(copy.GetUniqueId(), skin.GetUniqueId());
  EXPECT_EQ(Written(copy), Written(skin));
}

TEST_F(SkinXml, LeavesAloneWhatIsMissing) {
  CShapeSkin skin("oval");
  const std::int64_t unique = skin.GetUniqueId();
  Read(skin, "<skin/>");
  EXPECT_EQ(skin.GetId(), "oval");
  EXPECT_EQ(skin.GetUniqueId(), unique);
  EXPECT_TRUE(skin.FindState("normal"));
}

TEST_F(SkinXml, ReadsIdAndIdentityWithoutStates) {
  CShapeSkin skin("oval");
  Read(skin, R"(<skin id="box" unique="9876543210"/>)");
  EXPECT_EQ(skin.GetId(), "box");
  EXPECT_EQ(skin.GetUniqueId(), 9'876'543'210);
}

TEST_F(SkinXml, IgnoresStatesThatTheKindDoesNotHave) {
  CButtonSkin skin("");
  Read(skin, R"(<skin><states><pressed name="pressed"/><normal name="calm"/></states></skin>)");
  EXPECT_EQ(skin.GetStates().size(), 6U);
  EXPECT_FALSE(skin.FindState("pressed"));
  EXPECT_TRUE(skin.FindState("calm"));
}

TEST_F(SkinXml, FindsStatesWithoutRegardToCase) {
  CShapeSkin skin("");
  Read(skin, R"(<skin><States><NORMAL name="calm"/></States></skin>)");
  EXPECT_EQ(skin.GetStates()[0]->GetName(), "calm");
}

TEST_F(SkinXml, WritesAStateUnderAPlainNodeIfNoElementCanHaveItsName) {
  for (const char* const name : {"", " ", "a b", "1st", "a/><b", "a b=''", "a>", "<", "x/", "--", "q\xC3\x97"}) {
    CShapeSkin skin("");
    wxXmlDocument page;
    page.SetRoot(new wxXmlNode(wxXML_ELEMENT_NODE, "skin"));
    xml::WriteText(xml::AppendChild(xml::AppendChild(*page.GetRoot(), "states"), "normal"), "name",
                   wxString::FromUTF8(name));
    skin.ReadFromXml(*page.GetRoot(), *store_);
    EXPECT_EQ(skin.GetStates()[0]->GetName(), wxString::FromUTF8(name));
    const auto written = ParseXml(Written(skin));
    ASSERT_TRUE(written) << name;
    const wxXmlNode* const state = xml::FindChild(*xml::FindChild(*written->GetRoot(), "states"), "state");
    ASSERT_TRUE(state) << name;
    EXPECT_EQ(state->GetAttribute("name", "none"), wxString::FromUTF8(name));
  }
}

TEST_F(SkinXml, WritesARenamedStateUnderItsName) {
  CShapeSkin skin("");
  Read(skin, wxString::FromUTF8("<skin><states><normal name=\"gedr\xC3\xBC"
                                "ckt.2\"/></states></skin>"));
  EXPECT_NE(Written(skin).find(wxString::FromUTF8("<gedr\xC3\xBC"
                                                  "ckt.2 name=")),
            wxString::npos);
}

TEST_F(SkinXml, PassesOverLayersOfUnknownKinds) {
  CShapeSkin skin("");
  Read(skin, R"(<skin><states><normal name="normal"><layers><sparkle/><Text/>words</layers></normal></states></skin>)");
  EXPECT_EQ(skin.GetStates().size(), 1U);
  EXPECT_EQ(skin.GetStates()[0]->GetName(), "normal");
}

TEST_F(SkinXml, IsWrittenOnceAndReferredToAfterwards) {
  const auto skin = orlo::makeObject<CButtonSkin>("round");
  wxXmlNode first(wxXML_ELEMENT_NODE, "skin"), second(wxXML_ELEMENT_NODE, "skin");
  store_->WriteResource(first, skin->GetSkinTypeName(), skin.get());
  store_->WriteResource(second, skin->GetSkinTypeName(), skin.get());
  const wxString unique = wxString::Format("%lld", static_cast<long long>(skin->GetUniqueId()));
  EXPECT_TRUE(ToText(first).Contains("<states>"));
  EXPECT_TRUE(ToText(first).Contains("type=\"buttonskin\""));
  EXPECT_EQ(ToText(second), "<skin unique=\"" + unique + "\" type=\"buttonskin\"/>");
}

TEST_F(SkinXml, GivesOneObjectToAllWhoReferToIt) {
  const auto document = ParseXml(R"(<page>
    <skin unique="17" type="buttonskin" id="round"><states/></skin>
    <skin unique="17" type="buttonskin"/>
    <skin unique="18" type="buttonskin" id="round"/></page>)");
  const wxXmlNode* const first = document->GetRoot()->GetChildren();
  const wxXmlNode* const second = first->GetNext();
  const orlo::P<CSkin> skin = Shared(*first);
  ASSERT_TRUE(skin);
  EXPECT_EQ(skin->GetId(), "round");
  EXPECT_EQ(skin->GetUniqueId(), 17);
  EXPECT_EQ(Shared(*second), skin);
  EXPECT_NE(Shared(*second->GetNext()), skin);
}

TEST_F(SkinXml, GivesAnObjectOfItsOwnToEachWithoutAnIdentity) {
  const auto document = ParseXml(R"(<page><skin unique="0" type="shapeskin" id="a"/><skin type="shapeskin"/></page>)");
  const wxXmlNode* const first = document->GetRoot()->GetChildren();
  const orlo::P<CSkin> skin = Shared(*first);
  EXPECT_NE(Shared(*first), skin);
  EXPECT_EQ(Shared(*first)->GetUniqueId(), 0);
  EXPECT_NE(Shared(*first->GetNext()), skin);
}

TEST_F(SkinXml, IsNothingForAnUnknownType) {
  const auto document = ParseXml(R"(<page><skin unique="5" type="carpet"/><skin unique="5" type="shapeskin"/></page>)");
  const wxXmlNode* const first = document->GetRoot()->GetChildren();
  EXPECT_FALSE(Shared(*first));
  EXPECT_TRUE(Shared(*first->GetNext()));
}

TEST_F(SkinXml, IsRefusedUnderASecondType) {
  const auto document =
      ParseXml(R"(<page><skin unique="5" type="buttonskin"/><skin unique="5" type="shapeskin"/></page>)");
  const wxXmlNode* const first = document->GetRoot()->GetChildren();
  EXPECT_TRUE(Shared(*first));
  EXPECT_THROW(Shared(*first->GetNext()), orlo::CException);
}

}  // namespace

}  // namespace graphics::skin
