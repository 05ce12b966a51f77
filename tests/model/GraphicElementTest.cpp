#include "graphics/model/GraphicElement.h"
#include "tests/model/TestElement.h"

#include <gtest/gtest.h>

namespace graphics {
namespace {

TEST(GraphicElement, IsDisplayedByTheNameOfItsKindUntilItIsNamed) {
  CTestElement element(GraphicType::kStateButton);
  EXPECT_EQ(element.GetDisplayName(), "Button");
  element.SetName("Play");
  EXPECT_EQ(element.GetDisplayName(), "Play");
}

TEST(GraphicElement, InvitesToEditEmptyContentWhereHintsAreAllowed) {
  constexpr std::uint32_t kHintsAllowed = 1U << 5;
  CTestElement element;
  element.contentEmpty = true;
  EXPECT_EQ(element.GetText(), "");
  element.SetFlags(kHintsAllowed);
  EXPECT_EQ(element.GetText(), "Double click to edit");
  element.SetText("written");
  EXPECT_EQ(element.GetText(), "written");
  element.SetText("");
  element.contentEmpty = false;
  EXPECT_EQ(element.GetText(), "");
}

TEST(GraphicElement, HasATagOnlyWhileItsEntryIsTrue) {
  CTestElement element;
  EXPECT_FALSE(element.HasTag("chapter"));
  element.SetTag("chapter", true);
  EXPECT_TRUE(element.HasTag("chapter"));
  element.SetTag("chapter", false);
  EXPECT_FALSE(element.HasTag("chapter"));
}

TEST(GraphicElement, IsHitInsideItsFrameAsItIsTurned) {
  const auto element = MakeElement({0, 0, 20, 4});
  EXPECT_TRUE(element->HitTest(1, 2));
  EXPECT_FALSE(element->HitTest(10, 5));
  EXPECT_FALSE(element->HitTest(20, 2));
  element->SetRotation(90);
  EXPECT_FALSE(element->HitTest(1, 2));
  EXPECT_TRUE(element->HitTest(10, 5));
  EXPECT_TRUE(element->HitTest(10, -7));
  EXPECT_FALSE(element->HitTest(10, -9));
}

TEST(GraphicElement, AssignsWhatElementsHaveInCommon) {
  const auto source = MakeElement({10, 20, 30, 40});
  source->SetRotation(33);
  source->SetFlags(0x14);
  source->SetMirror(0, true);
  source->SetName("name");
  source->SetColoured(false);
  source->SetVisible(false);
  source->SetContentId("movie");
  source->SetContentIndex(3);
  source->SetTextId("title");
  source->SetText("not copied");
  source->SetModified(true);
  source->SetTag("on", true);
  source->SetTag("off", false);
  source->SetGroup(4, true);
  CTestElement copy;
  copy.SetTag("old", true);
  copy.SetGroup(1, true);
  copy.Assign(*source);
  EXPECT_EQ(copy.GetCenter(), source->GetCenter());
  EXPECT_EQ(copy.GetSize(), source->GetSize());
  EXPECT_EQ(copy.GetRotation(), 33);
  EXPECT_EQ(copy.GetFlags(), 0x14U);
  EXPECT_TRUE(copy.GetMirror(0));
  EXPECT_FALSE(copy.GetMirror(1));
  EXPECT_EQ(copy.GetName(), "name");
  EXPECT_FALSE(copy.IsColoured());
  EXPECT_FALSE(copy.IsVisible());
  EXPECT_EQ(copy.GetContentId(), "movie");
  EXPECT_EQ(copy.GetContentIndex(), 3);
  EXPECT_EQ(copy.GetTextId(), "title");
  EXPECT_EQ(copy.GetText(), "");
  EXPECT_TRUE(copy.IsModified());
  EXPECT_EQ(copy.GetTags(), (CGraphicElement::TagMap{{"on", true}}));
  EXPECT_EQ(copy.GetGroups(), (CGraphicElement::GroupMap{{4, true}}));
}

TEST(GraphicElement, AssignsNothingFromWhatIsNoElement) {
  CTestElement element;
  element.SetName("kept");
  element.SetTag("kept", true);
  CGraphicBase base;
  base.SetName("other");
  base.SetSize({5, 5});
  element.Assign(base);
  EXPECT_EQ(element.GetName(), "kept");
  EXPECT_TRUE(element.HasTag("kept"));
  EXPECT_EQ(element.GetSize(), CDoubleSize());
}

TEST(GraphicElement, KeepsItsTagsWhenItIsAssignedToItself) {
  CTestElement element;
  element.SetTag("kept", true);
  element.Assign(element);
  EXPECT_TRUE(element.HasTag("kept"));
}

TEST(GraphicElement, ClonesIntoAnElementOfItsKind) {
  CTestElement element(GraphicType::kCircle);
  element.SetName("name");
  const orlo::P<CGraphicElement> copy = element.Clone();
  EXPECT_EQ(copy->GetType(), GraphicType::kCircle);
  EXPECT_EQ(copy->GetName(), "name");
  EXPECT_NE(copy->GetUniqueId(), element.GetUniqueId());
}

bool Intersect(const orlo::P<CTestElement>& a, const orlo::P<CTestElement>& b) {
  EXPECT_EQ(a->Intersects(*b), b->Intersects(*a));
  return a->Intersects(*b);
}

TEST(ElementIntersection, OfCirclesGoesByTheDistanceOfTheirCentres) {
  const auto circle = MakeElement({0, 0, 10, 10}, GraphicType::kCircle);
  EXPECT_TRUE(Intersect(circle, MakeElement({10, 0, 10, 10}, GraphicType::kCircle)));
  EXPECT_FALSE(Intersect(circle, MakeElement({10.1, 0, 10, 10}, GraphicType::kCircle)));
  EXPECT_FALSE(Intersect(circle, MakeElement({8, 8, 10, 10}, GraphicType::kCircle)));
}

TEST(ElementIntersection, OfACircleAndABoxGoesByTheBoxGrownByTheCircle) {
  const auto circle = MakeElement({0, 0, 10, 10}, GraphicType::kCircle);
  for (const std::int32_t type : {GraphicType::kRectangle, GraphicType::kShape}) {
    EXPECT_TRUE(Intersect(circle, MakeElement({9, 9, 10, 10}, type)));
    EXPECT_TRUE(Intersect(circle, MakeElement({10, 0, 10, 10}, type)));
    EXPECT_FALSE(Intersect(circle, MakeElement({10.1, 0, 10, 10}, type)));
    EXPECT_FALSE(Intersect(circle, MakeElement({-10, 0, 10, 10}, type)));
  }
}

TEST(ElementIntersection, OfTwoBoxesOfOneKindGoesByTheirBounds) {
  for (const std::int32_t type : {GraphicType::kRectangle, GraphicType::kShape}) {
    const auto box = MakeElement({0, 0, 10, 10}, type);
    EXPECT_TRUE(Intersect(box, MakeElement({9, 9, 10, 10}, type)));
    EXPECT_FALSE(Intersect(box, MakeElement({10, 0, 10, 10}, type)));
  }
}

TEST(ElementIntersection, IsDeniedForEveryOtherPair) {
  const auto rectangle = MakeElement({0, 0, 10, 10}, GraphicType::kRectangle);
  EXPECT_FALSE(Intersect(rectangle, MakeElement({0, 0, 10, 10}, GraphicType::kShape)));
  EXPECT_FALSE(Intersect(rectangle, MakeElement({0, 0, 10, 10}, GraphicType::kImage)));
  EXPECT_FALSE(Intersect(MakeElement({0, 0, 10, 10}, GraphicType::kText), MakeElement({0, 0, 10, 10}, 3)));
  EXPECT_FALSE(Intersect(MakeElement({0, 0, 10, 10}, GraphicType::kArrow), rectangle));
}

}  // namespace
}  // namespace graphics
