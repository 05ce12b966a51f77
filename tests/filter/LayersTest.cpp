#include "tests/filter/PageTest.h"

namespace authfilter {
namespace {

class Layers : public CPageTest {};

TEST_F(Layers, OfAStaticPageAreOne) {
  Open(Rectangle(0, 0, 10, 10, kRed) + Rectangle(20, 0, 10, 10, kBlue) + "<line/><state-button/>");
  ASSERT_EQ(store.layers.size(), 1u);
  EXPECT_EQ(store.layers[0]->IsExclusive(), 0);
  EXPECT_EQ(store.layers[0]->GetDocument()->GetCount(), 4u);
}

TEST_F(Layers, OfAStaticPageNeverAskForARepaint) {
  Open(Rectangle(0, 0, 10, 10, kRed));
  At(0, 0);
  for (int frame = 0; frame < 10; ++frame) {
    store.NextFrame();
    EXPECT_FALSE(store.repaint);
  }
}

TEST_F(Layers, KeepTheOrderOfStaticAndMirror) {
  Open(Rectangle(0, 0, 10, 10, kRed) + Mirror(0, 10, 10, 10) + Rectangle(20, 0, 10, 10, kBlue));
  ASSERT_EQ(store.layers.size(), 3u);
  EXPECT_EQ(store.layers[0]->IsExclusive(), 0);
  EXPECT_EQ(store.layers[1]->IsExclusive(), 1);
  EXPECT_EQ(store.layers[2]->IsExclusive(), 0);
}

TEST_F(Layers, OfTwoMirrorsInARowAreTwo) {
  Open(Mirror(0, 10, 10, 10) + Mirror(20, 10, 10, 10));
  ASSERT_EQ(store.layers.size(), 2u);
  EXPECT_EQ(store.layers[0]->IsExclusive(), 1);
  EXPECT_EQ(store.layers[1]->IsExclusive(), 1);
  EXPECT_EQ(store.layers[0]->GetDocument()->GetCount(), 1u);
}

TEST_F(Layers, OfAnEmptyPageAreNone) {
  Open("");
  EXPECT_TRUE(store.layers.empty());
}

TEST_F(Layers, HoldInvisibleElementsThatAreNotPainted) {
  Open(Rectangle(0, 0, 10, 10, kRed, "visible=\"false\"") + Rectangle(20, 0, 10, 10, kBlue));
  ASSERT_EQ(store.layers.size(), 1u);
  EXPECT_EQ(store.layers[0]->GetDocument()->GetCount(), 2u);
  EXPECT_EQ(At(5, 5), (Pixel{0, 0, 0, 0}));
  EXPECT_EQ(At(25, 5), (Pixel{255, 0, 0, 255}));
}

TEST_F(Layers, HaveThePagesRectangleWhateverTheirOwnBounds) {
  Open(Rectangle(3, 3, 10, 10, kRed) + Mirror(0, 10, 10, 10));
  for (const auto& layer : store.layers) {
    const graphics::CDoubleRect rect = layer->GetDocument()->GetPageRect();
    EXPECT_DOUBLE_EQ(rect.left, 0);
    EXPECT_DOUBLE_EQ(rect.width, kWidth);
    EXPECT_DOUBLE_EQ(rect.height, kHeight);
  }
}

TEST_F(Layers, LieOverOneAnotherInPageOrder) {
  Open(Rectangle(0, 0, 20, 20, kRed) + Mirror(100, 50, 10, 10) + Rectangle(10, 0, 20, 20, kBlue));
  EXPECT_EQ(At(5, 5), (Pixel{0, 0, 255, 255}));
  EXPECT_EQ(At(15, 5), (Pixel{255, 0, 0, 255}));
}

TEST_F(Layers, AreDrawnOnceAndKept) {
  Open(Rectangle(0, 0, 10, 10, kRed));
  At(0, 0);
  const std::vector<std::uint8_t> input = Input();
  // Hiding the element after the first repaint shows that nothing draws it again.
  store.layers[0]->GetDocument()->GetElement(0)->SetVisible(false);
  store.SetInputImage(input.data(), kWidth * 4);
  EXPECT_EQ(At(5, 5), (Pixel{0, 0, 255, 255}));
}

TEST_F(Layers, OfAMirrorAreDrawnAtEachRepaint) {
  Open("<mirror>" + Frame(0, 40, 20, 20) + "<graphic-document>" + Rectangle(0, 20, 20, 20, kRed) +
       "</graphic-document></mirror>");
  ASSERT_EQ(store.layers.size(), 1u);
  EXPECT_GT(At(5, 41)[3], 0);
  store.layers[0]->GetDocument()->GetElement(0)->SetVisible(false);
  const std::vector<std::uint8_t> input = Input();
  store.SetInputImage(input.data(), kWidth * 4);
  EXPECT_EQ(At(5, 41), (Pixel{5, 41, (5 * 41) % 256, 255}));
}

}  // namespace
}  // namespace authfilter
