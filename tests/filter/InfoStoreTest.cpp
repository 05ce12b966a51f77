#include "tests/filter/PageTest.h"

#include <cmath>
#include <cstring>
#include <thread>

namespace authfilter {
namespace {

class Instance : public CPageTest {
protected:
  bool FrameIs(const std::vector<std::uint8_t>& input, int inputStride) {
    const graphics::CPixels pixels = store.BeginReadFrame();
    bool same = true;
    for (int y = 0; y < kHeight; ++y)
      same = same && std::memcmp(pixels.data + static_cast<std::ptrdiff_t>(y) * pixels.stride,
                                 input.data() + static_cast<std::ptrdiff_t>(y) * inputStride, kWidth * 4) == 0;
    store.EndReadFrame();
    return same;
  }
};

TEST_F(Instance, WithAnEmptyPageShowsItsInputByteForByte) {
  Open("");
  const std::vector<std::uint8_t> input = Input();
  store.SetInputImage(input.data(), kWidth * 4);
  EXPECT_TRUE(FrameIs(input, kWidth * 4));
}

TEST_F(Instance, TakesAnInputWithAStrideOfItsOwn) {
  Open("");
  const std::vector<std::uint8_t> input = Input(kWidth * 4 + 52);
  store.SetInputImage(input.data(), kWidth * 4 + 52);
  EXPECT_TRUE(FrameIs(input, kWidth * 4 + 52));
}

TEST_F(Instance, TakesAnInputWhoseRowsRunUpwards) {
  Open(Rectangle(0, 0, 10, 10, kRed));
  const std::vector<std::uint8_t> input = Input();
  store.SetInputImage(input.data() + static_cast<std::ptrdiff_t>(kWidth) * 4 * (kHeight - 1), -kWidth * 4);
  EXPECT_EQ(At(100, 0), (Pixel{100, kHeight - 1, (100 * (kHeight - 1)) % 256, 255}));
  EXPECT_EQ(At(5, 5), (Pixel{0, 0, 255, 255}));
}

TEST_F(Instance, HandsOutTheSameAddressWithNothingDrawnBetweenStillFrames) {
  Open(Rectangle(0, 0, 10, 10, kRed) + Mirror(0, 20, 10, 10));
  const graphics::CPixels first = store.BeginReadFrame();
  first.data[0] = 42;  // a drawing would bring the red back
  store.EndReadFrame();
  store.NextFrame();
  const graphics::CPixels second = store.BeginReadFrame();
  EXPECT_EQ(first.data, second.data);
  EXPECT_EQ(first.stride, second.stride);
  EXPECT_EQ(second.data[0], 42);
  store.EndReadFrame();
}

TEST_F(Instance, KeepsItsAddressWhenItRepaints) {
  Open(Rectangle(0, 0, 10, 10, kRed) + Mirror(0, 20, 10, 10));
  const std::vector<std::uint8_t> input = Input();
  const graphics::CPixels first = store.BeginReadFrame();
  store.EndReadFrame();
  store.SetInputImage(input.data(), kWidth * 4);
  EXPECT_EQ(store.BeginReadFrame().data, first.data);
}

TEST_F(Instance, LaysThePageOverItsInput) {
  Open(Rectangle(0, 0, 20, 20, kGreenHalf));
  const std::vector<std::uint8_t> input = Input();
  store.SetInputImage(input.data(), kWidth * 4);
  // Premultiplied: green 255 at alpha 128 is 128; what lies below keeps 127 of 255.
  EXPECT_EQ(At(10, 10), (Pixel{5, 133, 50, 255}));
  EXPECT_EQ(At(30, 10), (Pixel{30, 10, 300 % 256, 255}));
}

TEST_F(Instance, WithNoalphaLiesOnBlackAndCoversAnInput) {
  store.noAlpha = true;
  Open(Rectangle(0, 0, 20, 20, kGreenHalf));
  const std::vector<std::uint8_t> input = Input();
  store.SetInputImage(input.data(), kWidth * 4);
  EXPECT_EQ(At(30, 10), (Pixel{0, 0, 0, 255}));
  EXPECT_EQ(At(10, 10), (Pixel{0, 128, 0, 255}));
}

TEST_F(Instance, TakesNoalphaAtTheNextRepaintAlsoAfterOpen) {
  Open("");
  EXPECT_EQ(At(0, 0), (Pixel{0, 0, 0, 0}));
  store.noAlpha = true;
  const std::vector<std::uint8_t> input = Input();
  store.SetInputImage(input.data(), kWidth * 4);
  EXPECT_EQ(At(30, 10), (Pixel{0, 0, 0, 255}));
}

TEST_F(Instance, WithANullInputKeepsThePreviousFrameBelowTheNext) {
  Open(Rectangle(0, 0, 20, 20, kGreenHalf));
  const std::vector<std::uint8_t> input = Input();
  store.SetInputImage(input.data(), kWidth * 4);
  EXPECT_EQ(At(10, 10)[1], 133);
  store.SetInputImage(nullptr, 0);
  EXPECT_TRUE(store.repaint);
  EXPECT_EQ(At(30, 10), (Pixel{30, 10, 300 % 256, 255}));
  EXPECT_EQ(At(10, 10)[1], 128 + 66);  // once more over what was there
}

TEST_F(Instance, ShowsAPageOfAnotherAspectWithinTheTolerance) {
  SetPage(Rectangle(0, 0, 88, 90, kRed), Box(176, 90));
  store.Open();
  ASSERT_EQ(store.layers.size(), 1u);
  EXPECT_EQ(At(78, 45), (Pixel{0, 0, 255, 255}));
  EXPECT_EQ(At(82, 45), (Pixel{0, 0, 0, 0}));
}

TEST_F(Instance, PassesADifferenceOfExactlyTheTolerance) {
  store.width = 40;
  store.height = 100;
  SetPage(Rectangle(0, 0, 10, 10, kRed), Box(20, 100));
  ASSERT_EQ(std::abs(20.0 / 100 - 40.0 / 100), 0.2);  // doubling is exact, so this is no near miss
  store.Open();
  EXPECT_EQ(store.layers.size(), 1u);
}

TEST_F(Instance, RefusesADifferenceJustAboveTheTolerance) {
  store.width = 100;
  store.height = 100;
  SetPage(Rectangle(0, 0, 10, 10, kRed), Box(79.9, 100));
  store.Open();
  EXPECT_TRUE(store.layers.empty());
}

TEST_F(Instance, OfAnAspectTooFarOffShowsItsInputAlone) {
  SetPage(Rectangle(0, 0, 200, 90, kRed), Box(200, 90));
  store.Open();
  EXPECT_TRUE(store.layers.empty());
  const std::vector<std::uint8_t> input = Input();
  store.SetInputImage(input.data(), kWidth * 4);
  EXPECT_TRUE(FrameIs(input, kWidth * 4));
}

TEST_F(Instance, OfAnAspectTooFarOffIsBlackWithNoalpha) {
  store.noAlpha = true;
  SetPage(Rectangle(0, 0, 200, 90, kRed), Box(200, 90));
  store.Open();
  EXPECT_EQ(At(10, 10), (Pixel{0, 0, 0, 255}));
}

TEST_F(Instance, WithoutASizeHasNoLayersAndNoFrame) {
  for (const auto& [width, height] : {std::pair{0, 0}, {0, 90}, {160, 0}, {-160, -90}}) {
    CInfoStore other;
    other.width = width;
    other.height = height;
    SetPage(Rectangle(0, 0, 10, 10, kRed));
    std::swap(other.pluginData, store.pluginData);
    other.Open();
    EXPECT_TRUE(other.layers.empty());
    EXPECT_EQ(other.BeginReadFrame().data, nullptr);
    other.EndReadFrame();
  }
}

TEST_F(Instance, OpensOnce) {
  Open(Rectangle(0, 0, 10, 10, kRed));
  const CLayer* layer = store.layers.at(0).get();
  SetPage(Rectangle(0, 0, 10, 10, kBlue) + Mirror(0, 0, 10, 10));
  store.Open();
  ASSERT_EQ(store.layers.size(), 1u);
  EXPECT_EQ(store.layers[0].get(), layer);
}

TEST_F(Instance, IsNotReopenedAfterClose) {
  Open(Rectangle(0, 0, 10, 10, kRed));
  store.Close();
  store.Open();
  EXPECT_EQ(store.layers.size(), 1u);
  EXPECT_EQ(At(5, 5), (Pixel{0, 0, 255, 255}));
}

TEST_F(Instance, KeepsTheSizeThatItWasOpenedWith) {
  Open(Rectangle(0, 0, 10, 10, kRed));
  store.width = 5000;
  store.height = 5000;
  const std::vector<std::uint8_t> input = Input();
  store.SetInputImage(input.data(), kWidth * 4);
  EXPECT_EQ(store.BeginReadFrame().width, kWidth);
}

TEST_F(Instance, OfAnUnknownTypeNameRaisesAndStaysOpened) {
  SetPage("<state-button type-name=\"nobody-makes-this\"/>");
  EXPECT_THROW(store.Open(), std::exception);
  EXPECT_TRUE(store.opened);
  EXPECT_EQ(At(0, 0), (Pixel{0, 0, 0, 0}));
}

TEST_F(Instance, OfASizeBeyondTheLimitRaisesWithTheLimit) {
  store.width = 100'000;
  store.height = 100'000;
  SetPage("");
  try {
    store.Open();
    FAIL();
  } catch (const std::exception& error) {
    EXPECT_NE(std::string(error.what()).find("32767"), std::string::npos) << error.what();
  }
  EXPECT_EQ(store.BeginReadFrame().data, nullptr);
}

TEST_F(Instance, WithoutLayersTakesFramesAndThreadsWithoutHarm) {
  store.NextFrame();
  store.NewThread();
  store.Close();
  EXPECT_EQ(store.BeginReadFrame().data, nullptr);
}

TEST_F(Instance, BlendsAStaticPageWithoutTheToolkitLock) {
  Open(Rectangle(0, 0, 20, 20, kGreenHalf));
  At(0, 0);
  const std::vector<std::uint8_t> input = Input();
  const graphics::CToolkitLock held;
  std::thread other([&] {
    store.SetInputImage(input.data(), kWidth * 4);
    EXPECT_EQ(At(10, 10), (Pixel{5, 133, 50, 255}));
  });
  other.join();
}

}  // namespace
}  // namespace authfilter
