#include "authed/data/GraphicActionButton.h"
#include "authed/data/GraphicElementFactory.h"
#include "authed/data/GraphicMovieImage.h"
#include "authed/data/MovieFile.h"
#include "foundation/Error.h"
#include "graphics/animation/Animation.h"
#include "graphics/animation/GraphicAnimationImage.h"
#include "graphics/elements/Elements.h"
#include "graphics/skin/ButtonSkin.h"
#include "graphics/skin/ShapeSkin.h"
#include "tests/skin/Sources.h"

#include <gtest/gtest.h>

namespace authed::data {

namespace {

using namespace graphics;
using namespace graphics::test;
using animation::CAnimation;
using animation::CGraphicAnimationImage;
using animation::IAnimationElement;

class ActionButton : public testing::Test {
protected:
  ActionButton() {
    StartForTests();
    static const bool once = [] {
      RegisterElements();
      RegisterFactory(orlo::makeObject<CGraphicElementFactory>());
      return true;
    }();
    static_cast<void>(once);
  }

  /// A button that holds one that holds one and so on, so many in all.
  static orlo::P<CGraphicActionButton> Nested(int depth) {
    const auto button = orlo::makeObject<CGraphicActionButton>();
    if (depth > 1) button->SetElement(Nested(depth - 1));
    return button;
  }

private:
  CToolkitLock lock_;

protected:
  const orlo::P<skin::CSkin> skin_ = orlo::makeObject<skin::CButtonSkin>("frame");
  const orlo::P<CGraphicActionButton> button_ = orlo::makeObject<CGraphicActionButton>(skin_);
  const orlo::P<CTestElement> inner_ = orlo::makeObject<CTestElement>();
};

std::string MessageOf(const orlo::CException& error) {
  return orlo::toStdString(error.getMessage());
}

TEST_F(ActionButton, IsASkinButtonOfItsOwnName) {
  EXPECT_EQ(button_->GetTypeName(), "authed-state-button-action");
  EXPECT_EQ(button_->GetType(), 15);
  EXPECT_EQ(button_->GetCursorHint(), 6);
  EXPECT_EQ(button_->GetSkin(), skin_);
  EXPECT_EQ(button_->GetLabel(), "SkinButton");
  EXPECT_EQ(button_->GetSize(), (CDoubleSize{200, 40}));
  EXPECT_EQ(button_->GetTopLeft(), (CDoublePoint{0, 0}));
  EXPECT_FALSE(button_->GetElement());
  ASSERT_TRUE(button_->GetAction());
  EXPECT_EQ(button_->GetAction()->GetType(), EActionType::undefined);
  EXPECT_TRUE(orlo::tryCast<graphics::vantra::IElement>(button_));

  const auto plain = orlo::makeObject<CGraphicActionButton>();
  EXPECT_FALSE(plain->GetSkin());
  EXPECT_EQ(plain->GetLabel(), "StateButton");
  EXPECT_EQ(plain->GetSize(), (CDoubleSize{60, 20}));
  EXPECT_TRUE(plain->GetAction());
}

TEST_F(ActionButton, ComesFromItsFactoryByAnyCaseOfItsNameOrByNone) {
  CGraphicElementFactory factory;
  for (const char* const name : {"authed-state-button-action", "Authed-State-BUTTON-action", ""}) {
    const auto element = factory.CreateElement(name);
    auto* const button = orlo::tryCast<CGraphicActionButton>(element);
    ASSERT_TRUE(button) << name;
    EXPECT_FALSE(button->GetSkin());
    EXPECT_EQ(button->GetLabel(), "SkinButton");
    EXPECT_EQ(button->GetSize(), (CDoubleSize{200, 40}));
  }
  for (const char* const name :
       {" ", "authed-state-button", "authed-state-button-action ", "state-button", "skin-button", "animation-image"})
    EXPECT_FALSE(factory.CreateElement(name)) << name;
}

TEST_F(ActionButton, HasMovieImagesFromTheSameFactory) {
  CGraphicElementFactory factory;
  for (const char* const name : {"movie-image", "Movie-IMAGE"})
    EXPECT_TRUE(orlo::tryCast<CGraphicMovieImage>(factory.CreateElement(name))) << name;
  for (const char* const name : {"movie-image ", "movie", "movie-file"})
    EXPECT_FALSE(factory.CreateElement(name)) << name;
}

TEST_F(ActionButton, TellsTheTitleOfTheMovieWithin) {
  const auto image = orlo::makeObject<CGraphicMovieImage>();
  const auto movie = orlo::makeObject<CMovieFile>();
  movie->title = "Summer";
  image->SetMovie(movie);
  button_->SetElement(image);
  button_->GetAction()->SetType(EActionType::play);
  EXPECT_EQ(button_->GetText(), "Summer Play Movie");
  EXPECT_FALSE(button_->HasAnimation());
  image->GetMovieAnimation(40, 30);
  EXPECT_TRUE(button_->HasAnimation());
  EXPECT_EQ(button_->GetAnimation(), image->GetAnimation());
}

TEST_F(ActionButton, KeepsTheElementWithinOnItsFrame) {
  button_->SetElement(inner_);
  EXPECT_EQ(inner_->GetCenter(), (CDoublePoint{100, 20}));
  EXPECT_EQ(inner_->GetSize(), (CDoubleSize{200, 40}));
  button_->SetCenter({50, 60});
  EXPECT_EQ(inner_->GetCenter(), (CDoublePoint{50, 60}));
  button_->SetSize({30, 20});
  EXPECT_EQ(inner_->GetCenter(), (CDoublePoint{50, 60}));
  EXPECT_EQ(inner_->GetSize(), (CDoubleSize{30, 20}));
  button_->SetTopLeft(1, 2);
  EXPECT_EQ(inner_->GetTopLeft(), (CDoublePoint{1, 2}));
  button_->Transform(CMatrix::Scale(2, 2));
  EXPECT_EQ(inner_->GetBoundingRect(), button_->GetBoundingRect());

  const auto nested = Nested(3);
  nested->SetSize({7, 8});
  const auto middle = orlo::cast<CGraphicActionButton>(nested->GetElement());
  EXPECT_EQ(middle->GetElement()->GetSize(), (CDoubleSize{7, 8}));
  button_->SetElement(nullptr);
  button_->SetCenter({1, 1});
  EXPECT_NE(inner_->GetCenter(), (CDoublePoint{1, 1}));
}

TEST_F(ActionButton, TellsAnAuthorWhatItShowsAndDoes) {
  button_->GetAction()->SetType(EActionType::play);
  EXPECT_EQ(button_->GetText(), "Play Movie");
  button_->SetElement(inner_);
  EXPECT_EQ(button_->GetText(), " Play Movie");
  inner_->SetText("Summer");
  EXPECT_EQ(button_->GetText(), "Summer Play Movie");
  EXPECT_EQ(button_->GetText("whatever"), "SkinButton");
}

TEST_F(ActionButton, WithoutAnElementThatMovesHasNoAnimation) {
  for (const auto& element : {orlo::P<CGraphicElement>(), orlo::P<CGraphicElement>(inner_)}) {
    button_->SetElement(element);
    button_->StartAnimation();
    EXPECT_FALSE(button_->IsAnimationPlaying());
    EXPECT_FALSE(button_->HasAnimation());
    EXPECT_FALSE(button_->GetAnimation());
    button_->StopAnimation();
  }
}

TEST_F(ActionButton, HasTheAnimationOfTheElementWithin) {
  const auto image = orlo::makeObject<CGraphicAnimationImage>();
  button_->SetElement(image);
  EXPECT_FALSE(button_->HasAnimation());
  const auto animation = orlo::makeObject<CAnimation>(100);
  image->SetAnimation(orlo::P<animation::IAnimation>(animation));
  auto* const element = orlo::tryCast<IAnimationElement>(button_);
  ASSERT_TRUE(element);
  EXPECT_TRUE(element->HasAnimation());
  EXPECT_EQ(element->GetAnimation().get(), animation.get());
  EXPECT_FALSE(element->IsAnimationPlaying());
  element->StartAnimation();
  EXPECT_TRUE(element->IsAnimationPlaying());
  EXPECT_TRUE(image->IsAnimationPlaying());
  EXPECT_TRUE(animation->IsStarted());
  element->StopAnimation();
  EXPECT_FALSE(image->IsAnimationPlaying());
  EXPECT_FALSE(animation->IsStarted());
}

TEST_F(ActionButton, IsActiveByItsOwnFlag) {
  const auto image = orlo::makeObject<CGraphicAnimationImage>();
  button_->SetElement(image);
  image->SetFlags(image->GetFlags() | 4);
  EXPECT_FALSE(button_->IsElementActive());
  image->SetFlags(0);
  button_->SetFlags(button_->GetFlags() | 4);
  EXPECT_TRUE(button_->IsElementActive());
}

TEST_F(ActionButton, SharesTheElementWithinWhenAssignedAndCopiesItWhenCloned) {
  button_->SetElement(inner_);
  button_->GetAction()->SetType(EActionType::playAll);
  button_->SetFixedState("down");

  const auto assigned = orlo::makeObject<CGraphicActionButton>();
  assigned->Assign(*button_);
  EXPECT_EQ(assigned->GetElement().get(), inner_.get());
  EXPECT_NE(assigned->GetAction(), button_->GetAction());
  EXPECT_EQ(assigned->GetAction()->GetType(), EActionType::playAll);
  EXPECT_EQ(assigned->GetSkin(), skin_);

  const auto element = button_->Clone();
  auto* const clone = orlo::tryCast<CGraphicActionButton>(element);
  ASSERT_TRUE(clone);
  ASSERT_TRUE(clone->GetElement());
  EXPECT_NE(clone->GetElement().get(), inner_.get());
  EXPECT_TRUE(orlo::tryCast<CTestElement>(clone->GetElement()));
  EXPECT_EQ(clone->GetElement()->GetSize(), inner_->GetSize());
  EXPECT_EQ(clone->GetAction()->GetType(), EActionType::playAll);
  EXPECT_EQ(clone->GetCurrentState(0)->GetName(), "normal");
  EXPECT_EQ(button_->GetElement().get(), inner_.get());
}

TEST_F(ActionButton, LeavesTheElementWithinWhereItIsWhenCloned) {
  button_->SetElement(inner_);
  inner_->SetCenter({-7, 9});
  inner_->SetSize({3, 4});
  const orlo::P<CGraphicElement> element = button_->Clone();
  auto* const clone = orlo::cast<CGraphicActionButton>(element);
  EXPECT_EQ(inner_->GetCenter(), (CDoublePoint{-7, 9}));
  EXPECT_EQ(inner_->GetSize(), (CDoubleSize{3, 4}));
  EXPECT_EQ(clone->GetElement()->GetCenter(), button_->GetCenter());
  EXPECT_EQ(clone->GetElement()->GetSize(), button_->GetSize());
}

TEST_F(ActionButton, LosesItsElementToAButtonWithoutOneAndKeepsItForOtherKinds) {
  button_->SetElement(inner_);
  button_->GetAction()->SetType(EActionType::play);
  button_->Assign(*button_);
  EXPECT_EQ(button_->GetElement().get(), inner_.get());
  button_->Assign(*orlo::makeObject<skin::CGraphicSkinButton>());
  EXPECT_EQ(button_->GetElement().get(), inner_.get());
  EXPECT_EQ(button_->GetAction()->GetType(), EActionType::play);
  button_->Assign(*orlo::makeObject<CGraphicActionButton>());
  EXPECT_FALSE(button_->GetElement());
  EXPECT_EQ(button_->GetAction()->GetType(), EActionType::undefined);
  EXPECT_FALSE(orlo::cast<CGraphicActionButton>(button_->Clone())->GetElement());
}

wxString NodesOf(const wxXmlNode& node) {
  wxString names;
  for (const wxXmlNode* child = node.GetChildren(); child; child = child->GetNext()) names += child->GetName() + " ";
  return names;
}

TEST_F(ActionButton, WritesAnActionAlwaysAndAnElementIfItHasOne) {
  EXPECT_TRUE(
      XmlOf(*button_).Contains(R"(<action page="" type="undefined" movie-id="0" chapter="0" change-page="go-back"/>)"));
  EXPECT_FALSE(XmlOf(*button_).Contains("<element><"));
  EXPECT_FALSE(XmlOf(*button_).Contains("<element version"));

  button_->SetElement(inner_);
  button_->SetAttachmentBitmap(skin::Filled(3, 2, kBlue));
  wxXmlNode node(wxXML_ELEMENT_NODE, "state-button");
  button_->WriteToXml(node, *orlo::makeObject<CBase64Resources>());
  EXPECT_TRUE(NodesOf(node).EndsWith("skin attachment-bitmap action element ")) << NodesOf(node);
  const wxXmlNode* const element = xml::FindChild(node, "element");
  ASSERT_TRUE(element);
  EXPECT_TRUE(NodesOf(*element).EndsWith("rectangle ")) << NodesOf(*element);
  EXPECT_EQ(element->GetAttribute("version"), "1");
}

TEST_F(ActionButton, ComesBackWithActionAndElement) {
  const auto rectangle = NewInstance("rectangle");
  rectangle->SetName("thumbnail");
  Place(*rectangle, {1, 2, 3, 4});
  button_->SetElement(rectangle);
  Place(*button_, {10, 20, 30, 40});
  button_->GetAction()->SetType(EActionType::changePage);
  button_->GetAction()->SetPage("Extras");
  const auto copy = Reloaded(*button_);
  EXPECT_EQ(copy->GetAction()->GetType(), EActionType::changePage);
  EXPECT_EQ(copy->GetAction()->GetPage(), "Extras");
  ASSERT_TRUE(copy->GetElement());
  EXPECT_EQ(copy->GetElement()->GetName(), "thumbnail");
  EXPECT_EQ(copy->GetElement()->GetType(), GraphicType::kRectangle);
  EXPECT_EQ(copy->GetElement()->GetTopLeft(), (CDoublePoint{10, 20}));
  EXPECT_EQ(copy->GetSkin()->GetId(), "frame");
}

TEST_F(ActionButton, IsReadWithTheFirstOfSeveralElementsOnItsFrame) {
  ReadXml(*button_, R"(<element><center x="50" y="60"/><size width="20" height="10"/><Action type="play"/><ELEMENT>
      <line name="first"><center x="1" y="1"/></line><rectangle name="second"/></ELEMENT>
      <element><rectangle/></element></element>)");
  EXPECT_EQ(button_->GetAction()->GetType(), EActionType::play);
  ASSERT_TRUE(button_->GetElement());
  EXPECT_EQ(button_->GetElement()->GetName(), "first");
  EXPECT_EQ(button_->GetElement()->GetCenter(), (CDoublePoint{50, 60}));
  EXPECT_EQ(button_->GetElement()->GetSize(), (CDoubleSize{20, 10}));
}

TEST_F(ActionButton, KeepsWhatAFileDoesNotTell) {
  button_->SetElement(inner_);
  button_->GetAction()->SetType(EActionType::play);
  ReadXml(*button_, R"(<element><center x="50" y="60"/></element>)");
  EXPECT_EQ(button_->GetAction()->GetType(), EActionType::play);
  EXPECT_EQ(button_->GetElement().get(), inner_.get());
  EXPECT_EQ(inner_->GetCenter(), (CDoublePoint{50, 60}));
  ReadXml(*button_, R"(<element><element><content-box x="0" y="0" width="9" height="9"/>text</element></element>)");
  EXPECT_FALSE(button_->GetElement());
}

TEST_F(ActionButton, WithAWrongActionIsNotRead) {
  try {
    ReadXml(*button_, R"(<element><action type="PLAY"/></element>)");
    FAIL();
  } catch (const orlo::CException& error) {
    EXPECT_EQ(MessageOf(error), "Unknown Action type");
  }
  EXPECT_THROW(ReadXml(*button_, R"(<element><action/></element>)"), orlo::CException);
  EXPECT_THROW(ReadXml(*button_, R"(<element><element><state-button type-name="?"/></element></element>)"),
               orlo::CException);
}

TEST_F(ActionButton, ComesWithItsPage) {
  const auto document = orlo::makeObject<CGraphicDocument>();
  const auto store = orlo::makeObject<CBase64Resources>();
  document->ReadFromXml(*ParseXml(R"(<graphic-document><content-box x="0" y="0" width="9" height="9"/>
      <state-button type-name="authed-state-button-action"><action type="play-all"/>
        <element><rectangle unique="7" type="rectangle" name="shared"/></element></state-button>
      <state-button type="authed-state-button-action" unique="6"><action type="play"/>
        <element><rectangle unique="7" type="rectangle"/></element></state-button>
      <state-button/></graphic-document>)")
                             ->GetRoot(),
                        *store);
  ASSERT_EQ(document->GetCount(), 3U);
  auto* const first = orlo::tryCast<CGraphicActionButton>(document->GetElement(0));
  auto* const second = orlo::tryCast<CGraphicActionButton>(document->GetElement(1));
  ASSERT_TRUE(first && second);
  EXPECT_EQ(first->GetAction()->GetType(), EActionType::playAll);
  EXPECT_EQ(second->GetAction()->GetType(), EActionType::play);
  EXPECT_EQ(first->GetElement(), second->GetElement());
  EXPECT_EQ(first->GetElement()->GetName(), "shared");
  EXPECT_FALSE(orlo::tryCast<CGraphicActionButton>(document->GetElement(2)));

  wxXmlNode node(wxXML_ELEMENT_NODE, "graphic-document");
  document->WriteToXml(node, *orlo::makeObject<CBase64Resources>());
  EXPECT_TRUE(ToText(node).Contains("type=\"authed-state-button-action\""));
}

TEST_F(ActionButton, NestsToALimitThatItsErrorNames) {
  EXPECT_NO_THROW(Nested(kMaxActionButtonDepth));
  try {
    Nested(kMaxActionButtonDepth + 1);
    FAIL();
  } catch (const orlo::CException& error) {
    EXPECT_EQ(MessageOf(error), "Action buttons may lie within action buttons at most 4 deep");
  }
}

TEST_F(ActionButton, DoesNotHoldItself) {
  EXPECT_THROW(button_->SetElement(button_), orlo::CException);
  EXPECT_FALSE(button_->GetElement());
  const auto outer = orlo::makeObject<CGraphicActionButton>();
  outer->SetElement(button_);
  EXPECT_THROW(button_->SetElement(outer), orlo::CException);
  EXPECT_FALSE(button_->GetElement());
}

TEST_F(ActionButton, NestedTooDeepInAFileIsNotRead) {
  const auto nested = [](int depth) {
    wxString text;
    for (int level = 0; level < depth; ++level)
      text += R"(<element><state-button type-name="authed-state-button-action">)";
    text += "<element><line/></element>";
    for (int level = 0; level < depth; ++level) text += "</state-button></element>";
    return "<element>" + text + "</element>";
  };
  ReadXml(*button_, nested(kMaxActionButtonDepth - 1));
  EXPECT_TRUE(button_->GetElement());
  EXPECT_THROW(ReadXml(*button_, nested(kMaxActionButtonDepth)), orlo::CException);
  EXPECT_THROW(ReadXml(*button_, nested(60)), orlo::CException);
}

}  // namespace

}  // namespace authed::data
