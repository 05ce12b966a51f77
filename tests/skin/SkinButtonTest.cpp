#include "graphics/elements/Elements.h"
#include "graphics/model/ElementFactory.h"
#include "graphics/skin/AnimationLayer.h"
#include "graphics/skin/ButtonSkin.h"
#include "graphics/skin/GraphicElementSkinFactory.h"
#include "graphics/skin/GraphicSkinButton.h"
#include "graphics/skin/ShapeSkin.h"
#include "tests/skin/Sources.h"

#include <gtest/gtest.h>

namespace graphics::skin {

namespace {

/// Each state in a colour of its own: the number of the state as red.
orlo::P<CSkin> Coloured(const orlo::P<CSkin>& skin) {
  int red = 100;
  for (const auto& state : skin->GetStates()) {
    const auto picture = orlo::makeObject<CAnimationLayer>();
    picture->SetAttachmentBitmap(Filled(2, 2, {red, 0, 0, 255}));
    state->AddLayer(picture);
    red += 10;
  }
  return skin;
}

class SkinButton : public testing::Test {
protected:
  SkinButton() { StartForTests(); }

  wxString StateOf(const CGraphicSkinButton& button, int viewMode = 0) {
    const orlo::P<CState> state = button.GetCurrentState(viewMode);
    return state ? state->GetName() : wxString("none");
  }
  CPixel PixelOfPainted(CGraphicSkinButton& button, int viewMode = 0) {
    CPage page;
    page.context.viewMode = viewMode;
    Place(button, {10, 10, 40, 20});
    button.Paint(page.context);
    return page.At(30, 12);
  }

private:
  CToolkitLock lock_;

protected:
  const orlo::P<CSkin> skin_ = Coloured(orlo::makeObject<CButtonSkin>("round"));
  const orlo::P<CGraphicSkinButton> button_ = orlo::makeObject<CGraphicSkinButton>(skin_);
};

constexpr std::uint32_t kTouched = 1U << 2;
constexpr std::uint32_t kPressed = 1U << 8;

TEST_F(SkinButton, IsAStateButtonWithoutASkin) {
  const auto button = orlo::makeObject<CGraphicSkinButton>();
  EXPECT_FALSE(button->GetSkin());
  EXPECT_EQ(button->GetLabel(), "StateButton");
  EXPECT_EQ(button->GetSize(), (CDoubleSize{60, 20}));
  EXPECT_EQ(button->GetTypeName(), "skin-button");
  EXPECT_EQ(button->GetType(), 15);
  EXPECT_EQ(button->GetCursorHint(), 6);
  EXPECT_EQ(PixelOfPainted(*button), (CPixel{200, 200, 200, 255}));
}

TEST_F(SkinButton, HasALabelASizeAndAPlaceWithASkin) {
  EXPECT_EQ(button_->GetSkin(), skin_);
  EXPECT_EQ(button_->GetLabel(), "SkinButton");
  EXPECT_EQ(button_->GetSize(), (CDoubleSize{200, 40}));
  EXPECT_EQ(button_->GetTopLeft(), (CDoublePoint{0, 0}));
}

TEST_F(SkinButton, IsNormalOutsideOfViewMode6) {
  for (const int viewMode : {0, 1, 2, 5, 7}) {
    button_->SetFlags(kTouched | kPressed);
    EXPECT_EQ(StateOf(*button_, viewMode), "normal") << viewMode;
  }
}

TEST_F(SkinButton, FollowsItsFlagsInViewMode6) {
  const std::pair<std::uint32_t, const char*> states[] = {
      {0, "normal"}, {kTouched, "hover"}, {kPressed, "normal"}, {kTouched | kPressed, "down"}};
  for (const auto& [flags, name] : states) {
    button_->SetFlags(flags);
    EXPECT_EQ(StateOf(*button_, 6), name);
  }
}

TEST_F(SkinButton, ShowsAFixedStateAlways) {
  for (const auto& state : skin_->GetStates()) {
    button_->SetFixedState(state->GetName().Upper());
    EXPECT_EQ(button_->GetCurrentState(0), state);
    EXPECT_EQ(button_->GetCurrentState(6), state);
  }
  button_->SetFixedState("");
  EXPECT_EQ(StateOf(*button_), "normal");
}

TEST_F(SkinButton, IsPaintedAsItsState) {
  EXPECT_EQ(PixelOfPainted(*button_), (CPixel{140, 0, 0, 255}));
  button_->SetFixedState("selected");
  EXPECT_EQ(PixelOfPainted(*button_), (CPixel{150, 0, 0, 255}));
}

TEST_F(SkinButton, IsPlainInAStateThatItsSkinHasNot) {
  const CPixel plain{200, 200, 200, 255};
  button_->SetFixedState("nonsense");
  EXPECT_EQ(PixelOfPainted(*button_), plain);

  button_->SetFixedState("");
  button_->SetSkin(Coloured(orlo::makeObject<CShapeSkin>("")));
  EXPECT_EQ(PixelOfPainted(*button_), (CPixel{100, 0, 0, 255}));
  button_->SetFlags(kTouched);
  EXPECT_EQ(StateOf(*button_, 6), "none");
  EXPECT_EQ(PixelOfPainted(*button_, 6), (CPixel{255, 0, 0, 255}));
}

TEST_F(SkinButton, FillsItsFrameUpright) {
  CPage page(120, 80);
  page.context.matrix = CMatrix::Scale(2, 2);
  Place(*button_, {10, 10, 40, 20});
  button_->SetRotation(90);
  button_->SetMirror(0, true);
  button_->Paint(page.context);
  EXPECT_EQ(page.Ink().bounds, wxRect(20, 20, 81, 41));
}

TEST_F(SkinButton, FeedsItsSkinWithLabelAndBitmap) {
  button_->SetLabel("Play");
  EXPECT_EQ(button_->GetText("whatever"), "Play");
  EXPECT_EQ(button_->GetBitmap("whatever"), nullptr);
  const wxBitmap bitmap = Filled(3, 2, kBlue);
  button_->SetAttachmentBitmap(bitmap);
  ASSERT_TRUE(button_->GetBitmap("whatever"));
  EXPECT_NE(button_->GetBitmap("whatever"), &bitmap);
  EXPECT_EQ(button_->GetBitmap("")->GetSize(), wxSize(3, 2));
  button_->SetAttachmentBitmap(wxNullBitmap);
  EXPECT_EQ(button_->GetBitmap("whatever"), nullptr);
}

TEST_F(SkinButton, ShowsItsAttachmentInItsSkin) {
  const auto skin = orlo::makeObject<CShapeSkin>("");
  skin->FindState("normal")->AddLayer(orlo::makeObject<CAnimationLayer>());
  button_->SetSkin(skin);
  button_->SetAttachmentBitmap(Filled(3, 2, kBlue));
  EXPECT_EQ(PixelOfPainted(*button_), kBlue);
}

TEST_F(SkinButton, SharesItsSkinWithItsCloneAndCopiesItsBitmap) {
  button_->SetAttachmentBitmap(Filled(3, 2, kBlue));
  button_->SetFixedState("down");
  button_->SetHint("hint");
  const orlo::P<CGraphicElement> element = button_->Clone();
  auto* const clone = orlo::tryCast<CGraphicSkinButton>(element);
  ASSERT_TRUE(clone);
  EXPECT_EQ(clone->GetSkin(), skin_);
  ASSERT_TRUE(clone->GetAttachmentBitmap());
  EXPECT_NE(clone->GetAttachmentBitmap(), button_->GetAttachmentBitmap());
  EXPECT_EQ(clone->GetAttachmentBitmap()->GetSize(), wxSize(3, 2));
  EXPECT_EQ(clone->GetHint(), "hint");
  EXPECT_EQ(StateOf(*clone), "normal");
}

TEST_F(SkinButton, LosesItsBitmapToAButtonWithoutOne) {
  const auto other = orlo::makeObject<CGraphicSkinButton>(skin_);
  other->SetAttachmentBitmap(Filled(3, 2, kBlue));
  other->SetFixedState("down");
  other->Assign(*button_);
  EXPECT_EQ(other->GetAttachmentBitmap(), nullptr);
  EXPECT_EQ(StateOf(*other), "down");
  other->SetSkin(nullptr);
  other->Assign(*orlo::makeObject<CGraphicStateButton>());
  EXPECT_FALSE(other->GetSkin());
}

TEST_F(SkinButton, ComesBackWithItsSkinAndBitmap) {
  button_->SetLabel("Play");
  button_->SetAttachmentBitmap(Filled(3, 2, kBlue));
  const auto copy = Reloaded(*button_);
  EXPECT_EQ(copy->GetLabel(), "Play");
  ASSERT_TRUE(copy->GetSkin());
  EXPECT_EQ(copy->GetSkin()->GetId(), "round");
  EXPECT_EQ(copy->GetSkin()->FindState("down")->GetLayers().size(), 1U);
  ASSERT_TRUE(copy->GetAttachmentBitmap());
  EXPECT_EQ(copy->GetAttachmentBitmap()->GetSize(), wxSize(3, 2));
  EXPECT_EQ(copy->GetSkin()->GetUniqueId(), skin_->GetUniqueId());
}

TEST_F(SkinButton, IsWrittenWithoutASkinIfItHasNone) {
  const auto button = orlo::makeObject<CGraphicSkinButton>();
  EXPECT_FALSE(XmlOf(*button).Contains("<skin"));
  EXPECT_FALSE(XmlOf(*button).Contains("attachment-bitmap"));
  EXPECT_FALSE(Reloaded(*button)->GetSkin());
}

TEST_F(SkinButton, KeepsItsSkinIfANodeHasNone) {
  ReadXml(*button_, "<element/>");
  EXPECT_EQ(button_->GetSkin(), skin_);
  ReadXml(*button_, R"(<element><skin type="carpet"/></element>)");
  EXPECT_FALSE(button_->GetSkin());
}

class CSkinFactory : public testing::Test {
private:
  CToolkitLock lock_;
};

TEST_F(CSkinFactory, MakesSkinButtonsFromTheirTypeNameAlone) {
  CGraphicElementSkinFactory factory;
  EXPECT_TRUE(orlo::tryCast<CGraphicSkinButton>(factory.CreateElement("skin-button")));
  for (const char* const name : {"", "Skin-Button", "state-button", "skinbutton"})
    EXPECT_FALSE(factory.CreateElement(name)) << name;
}

TEST_F(CSkinFactory, BringsAPageItsButtonsWithOneSkin) {
  RegisterElements();
  RegisterFactory(orlo::makeObject<CGraphicElementSkinFactory>());
  const auto document = orlo::makeObject<CGraphicDocument>();
  document->ReadFromXml(*ParseXml(R"(<graphic-document><content-box x="0" y="0" width="9" height="9"/>
      <state-button type-name="skin-button"><skin unique="5" type="buttonskin" id="round"/></state-button>
      <state-button type="skin-button" unique="6"><skin unique="5" type="buttonskin"/></state-button>
      <state-button/></graphic-document>)")
                             ->GetRoot(),
                        *orlo::makeObject<CBase64Resources>());
  wxXmlNode node(wxXML_ELEMENT_NODE, "graphic-document");
  document->WriteToXml(node, *orlo::makeObject<CBase64Resources>());
  const wxString text = ToText(node);
  EXPECT_TRUE(text.Contains("type=\"skin-button\""));
  EXPECT_TRUE(text.Contains("<skin unique=\"5\" type=\"buttonskin\" id=\"round\">"));
  EXPECT_TRUE(text.Contains("<skin unique=\"5\" type=\"buttonskin\"/>"));
}

}  // namespace

}  // namespace graphics::skin
