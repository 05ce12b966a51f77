#include "foundation/Error.h"
#include "graphics/model/GraphicContainer.h"
#include "graphics/model/GraphicLayers.h"
#include "tests/model/TestElement.h"

#include <gtest/gtest.h>

namespace graphics {
namespace {

class CWatchedDocument : public CGraphicDocument {
public:
  bool HasValidBounds() const { return AreBoundsValid(); }
  std::int32_t UpdateCount() const { return GetUpdateCount(); }
};

TEST(GraphicContainer, HasNoBoundsWithoutElements) {
  CGraphicDocument document;
  EXPECT_EQ(document.GetBoundingBox(), CDoubleRect());
  EXPECT_EQ(document.GetPageRect(), CDoubleRect());
  document.SetContentBox({1, 2, 3, 4});
  EXPECT_EQ(document.GetPageRect(), (CDoubleRect{1, 2, 3, 4}));
  EXPECT_EQ(document.GetBoundingBox(), CDoubleRect());
}

TEST(GraphicContainer, IsBoundedByAllItsElements) {
  CGraphicDocument document;
  document.Add(MakeElement({10, 10, 5, 5}));
  EXPECT_EQ(document.GetBoundingBox(), (CDoubleRect{10, 10, 5, 5}));
  document.Add(MakeElement({-5, 12, 1, 20}));
  EXPECT_EQ(document.GetBoundingBox(), (CDoubleRect{-5, 10, 20, 22}));
  EXPECT_EQ(document.GetPageRect(), document.GetBoundingBox());
}

TEST(GraphicContainer, CountsInvisibleElementsForItsBoundsButDoesNotPaintThem) {
  CGraphicDocument document;
  const auto visible = MakeElement({0, 0, 5, 5});
  const auto hidden = MakeElement({10, 0, 5, 5});
  hidden->SetVisible(false);
  document.Add(visible);
  document.Add(hidden);
  EXPECT_EQ(document.GetBoundingBox(), (CDoubleRect{0, 0, 15, 5}));
  visible->document = orlo::makeObject<CGraphicDocument>();
  hidden->document = visible->document;
  CPaintContext context(nullptr, 0);
  document.Paint(context);
  EXPECT_EQ(visible->painted, 1);
  EXPECT_EQ(hidden->painted, 0);
}

TEST(GraphicContainer, FollowsItsElements) {
  CGraphicDocument document;
  const auto element = MakeElement({0, 0, 5, 5});
  document.Add(element);
  document.GetBoundingBox();
  element->SetTopLeft(7, 8);
  EXPECT_EQ(document.GetBoundingBox(), (CDoubleRect{7, 8, 5, 5}));
}

TEST(GraphicContainer, KeepsItsBoundsUntilSomethingChanges) {
  CWatchedDocument document;
  const auto element = MakeElement({0, 0, 5, 5});
  document.Add(element);
  EXPECT_FALSE(document.HasValidBounds());
  document.GetBoundingBox();
  EXPECT_TRUE(document.HasValidBounds());
  element->SetSize({1, 1});
  EXPECT_FALSE(document.HasValidBounds());
}

TEST(GraphicContainer, DropsItsBoundsAtTheEndOfTheOutermostUpdateOnly) {
  CWatchedDocument document;
  document.BeginUpdate();
  document.BeginUpdate();
  document.GetBoundingBox();
  document.EndUpdate();
  EXPECT_TRUE(document.HasValidBounds());
  document.EndUpdate();
  EXPECT_FALSE(document.HasValidBounds());
}

TEST(GraphicContainer, StaysOutOfUpdatesWhenOneEndsThatNeverBegan) {
  CWatchedDocument document;
  document.EndUpdate();
  EXPECT_EQ(document.UpdateCount(), 0);
  document.BeginUpdate();
  EXPECT_EQ(document.UpdateCount(), 1);
}

TEST(GraphicContainer, GivesItsElementsInOrderAndNoneBeyond) {
  CGraphicDocument document;
  const auto first = MakeElement({0, 0, 1, 1});
  const auto second = MakeElement({0, 0, 1, 1});
  document.Add(first);
  document.Add(second);
  document.Add(nullptr);
  ASSERT_EQ(document.GetCount(), 2U);
  EXPECT_EQ(document.GetElement(0), first);
  EXPECT_EQ(document.GetElement(1), second);
  EXPECT_THROW(document.GetElement(2), orlo::CError);
}

TEST(GraphicContainer, StopsListeningWhenItIsCleared) {
  CWatchedDocument document;
  const auto element = MakeElement({0, 0, 5, 5});
  document.Add(element);
  document.SetContentBox({1, 2, 3, 4});
  document.Clear();
  EXPECT_EQ(document.GetCount(), 0U);
  EXPECT_FALSE(document.HasContentBox());
  document.GetBoundingBox();
  element->SetSize({1, 1});
  EXPECT_TRUE(document.HasValidBounds());
}

TEST(GraphicContainer, MayDieBeforeItsElements) {
  const auto element = MakeElement({0, 0, 5, 5});
  {
    CGraphicDocument document;
    document.Add(element);
  }
  element->SetSize({1, 1});
  EXPECT_EQ(element->GetSize(), (CDoubleSize{1, 1}));
}

TEST(GraphicContainer, TransformsAllElements) {
  CGraphicDocument document;
  document.Add(MakeElement({0, 0, 5, 5}));
  document.Add(MakeElement({10, 0, 5, 5}));
  document.Transform(CMatrix::Scale(2, 2));
  EXPECT_EQ(document.GetBoundingBox(), (CDoubleRect{0, 0, 30, 10}));
}

TEST(GraphicContainer, SharesItsContentWithOneThatItIsAssignedTo) {
  CGraphicDocument source;
  source.Add(MakeElement({0, 0, 5, 5}));
  source.SetContentBox({1, 2, 3, 4});
  source.SetLabel("label");
  source.GetXDatas()->Set("number", orlo::makeObject<CIntXData>(5));
  CGraphicDocument copy;
  copy.Add(MakeElement({9, 9, 9, 9}));
  copy.Assign(source);
  ASSERT_EQ(copy.GetCount(), 1U);
  EXPECT_EQ(copy.GetElement(0), source.GetElement(0));
  EXPECT_EQ(copy.GetPageRect(), (CDoubleRect{1, 2, 3, 4}));
  EXPECT_EQ(copy.GetLabel(), "label");
  EXPECT_EQ(copy.GetXDatas(), source.GetXDatas());
}

TEST(GraphicContainer, TakesTheElementsOfALayerInOneUpdate) {
  CGraphicLayer layer;
  layer.Add(MakeElement({0, 0, 5, 5}));
  layer.Add(MakeElement({5, 5, 5, 5}));
  CWatchedDocument document;
  document.AddLayer(layer);
  ASSERT_EQ(document.GetCount(), 2U);
  EXPECT_EQ(document.GetElement(1), layer.GetItem(1));
  EXPECT_EQ(document.UpdateCount(), 0);
}

TEST(GraphicLayers, ShareALayerAmongStaticElements) {
  CGraphicLayers layers;
  const auto first = layers.GetLayerFor(CGraphicLayer::kStatic);
  EXPECT_EQ(layers.GetLayerFor(CGraphicLayer::kStatic), first);
  first->Add(MakeElement({}));
  EXPECT_EQ(layers.GetLayerFor(CGraphicLayer::kStatic), first);
  EXPECT_EQ(layers.GetCount(), 1U);
}

TEST(GraphicLayers, GiveEveryExclusiveElementItsOwn) {
  CGraphicLayers layers;
  layers.GetLayerFor(CGraphicLayer::kStatic)->Add(MakeElement({}));
  const auto first = layers.GetLayerFor(CGraphicLayer::kExclusive);
  EXPECT_EQ(layers.GetLayerFor(CGraphicLayer::kExclusive), first);
  first->Add(MakeElement({}));
  const auto second = layers.GetLayerFor(CGraphicLayer::kExclusive);
  EXPECT_NE(second, first);
  second->Add(MakeElement({}));
  layers.GetLayerFor(CGraphicLayer::kStatic);
  ASSERT_EQ(layers.GetCount(), 4U);
  EXPECT_EQ(layers.GetItem(0)->GetKind(), CGraphicLayer::kStatic);
  EXPECT_EQ(layers.GetItem(1)->GetKind(), CGraphicLayer::kExclusive);
  EXPECT_EQ(layers.GetItem(2)->GetKind(), CGraphicLayer::kExclusive);
  EXPECT_EQ(layers.GetItem(3)->GetKind(), CGraphicLayer::kStatic);
  EXPECT_TRUE(layers.GetItem(3)->IsEmpty());
}

}  // namespace
}  // namespace graphics
