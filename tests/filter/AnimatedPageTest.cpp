#include "tests/filter/AnimatedPage.h"

namespace authfilter {
namespace {

class AnimatedPage : public CAnimatedPage {};

TEST_F(AnimatedPage, GivesEachAnimatedImageALayerInItsPlace) {
  Open(Rectangle(0, 0, 10, 10, kRed) + Image(20, 0, 10, 10, TwoColours(80, true)) +
       Image(40, 0, 10, 10, TwoColours(80, true)) + Rectangle(60, 0, 10, 10, kBlue));
  ASSERT_EQ(store.layers.size(), 4u);
  EXPECT_EQ(store.layers[0]->IsExclusive(), 0);
  EXPECT_EQ(store.layers[1]->IsExclusive(), 1);
  EXPECT_EQ(store.layers[2]->IsExclusive(), 1);
  EXPECT_EQ(store.layers[3]->IsExclusive(), 0);
}

TEST_F(AnimatedPage, RunsByTheHostsFrames) {
  Open(Image(20, 0, 10, 10, TwoColours(100, true)));
  std::string colours;
  for (int frame = 0; frame < 10; ++frame) {
    if (frame > 0) store.NextFrame();
    colours += At(25, 5) == kRedPixel ? 'r' : At(25, 5) == kBluePixel ? 'b' : '?';
  }
  EXPECT_EQ(colours, "rrrbbbrrrb");
}

TEST_F(AnimatedPage, RunsAFileOfFramesWithDelaysOfTheirOwn) {
  Open(Image(20, 0, 10, 10,
             R"(<animation type="gif" count="3" loop="true"><size x="4" y="4"/><frame0 delay="40">)" +
                 Bitmap("frame", *wxRED) + R"(</frame0><frame1 delay="120">)" + Bitmap("frame", *wxBLUE) +
                 R"(</frame1></animation>)"));
  std::string colours;
  for (int frame = 0; frame < 12; ++frame) {
    if (frame > 0) store.NextFrame();
    colours += At(25, 5) == kRedPixel ? 'r' : At(25, 5) == kBluePixel ? 'b' : '?';
  }
  EXPECT_EQ(colours, "rrbbbbrrbbbb");
}

TEST_F(AnimatedPage, AsksForARepaintAtEachFrameWhileItRunsAndNeverAfter) {
  Open(Image(20, 0, 10, 10, TwoColours(100, false)));
  At(0, 0);
  EXPECT_FALSE(store.repaint);
  for (int frame = 1; frame < 6; ++frame) {
    store.NextFrame();
    EXPECT_TRUE(store.repaint) << frame;
    At(0, 0);
  }
  for (int frame = 6; frame < 20; ++frame) {
    store.NextFrame();
    EXPECT_FALSE(store.repaint) << frame;
  }
  EXPECT_EQ(At(25, 5), kBluePixel);
}

TEST_F(AnimatedPage, StepsAllAnimationsEveryFrame) {
  Open(Image(20, 0, 10, 10, TwoColours(100, true)) + Image(40, 0, 10, 10, TwoColours(1, true)));
  for (int frame = 0; frame < 3; ++frame) store.NextFrame();
  EXPECT_EQ(At(25, 5), kBluePixel);
  EXPECT_EQ(At(45, 5), kBluePixel);
  store.NextFrame();
  EXPECT_EQ(At(25, 5), kBluePixel);
  EXPECT_EQ(At(45, 5), kRedPixel);
}

TEST_F(AnimatedPage, LiesBetweenWhatStandsBelowAndAbove) {
  Open(Rectangle(0, 0, 40, 40, kBlue) + Image(10, 10, 20, 20, TwoColours(100, true)) +
       Rectangle(20, 20, 40, 40, kGreenHalf));
  EXPECT_EQ(At(5, 5), kBluePixel);
  EXPECT_EQ(At(15, 15), kRedPixel);
  const Pixel mixed = At(25, 25);
  EXPECT_GT(mixed[1], 100);
  EXPECT_GT(mixed[2], 100);
  EXPECT_EQ(mixed[0], 0);
}

TEST_F(AnimatedPage, LeavesNothingOfThePictureBefore) {
  const std::vector<std::uint8_t> input = Input();
  Open(Image(20, 0, 10, 10, TwoColours(1, true)) + Rectangle(60, 0, 10, 10, kBlue));
  for (int frame = 0; frame < 4; ++frame) {
    store.SetInputImage(input.data(), kWidth * 4);
    EXPECT_EQ(At(25, 5), frame % 2 == 0 ? kRedPixel : kBluePixel);
    EXPECT_EQ(At(35, 5), (Pixel{35, 5, 175, 255}));
    EXPECT_EQ(At(65, 5), kBluePixel);
    store.NextFrame();
  }
}

TEST_F(AnimatedPage, StopsWhenItIsClosed) {
  Open(Image(20, 0, 10, 10, TwoColours(1, true)));
  store.NextFrame();
  EXPECT_EQ(At(25, 5), kBluePixel);
  store.Close();
  store.NextFrame();
  // A stopped animation shows its first frame.
  EXPECT_EQ(At(25, 5), kRedPixel);
}

TEST_F(AnimatedPage, WithAnImageThatHasNoAnimationStandsStill) {
  Open(Image(20, 0, 10, 10, "") + Image(40, 0, 10, 10, R"(<animation type="unknown" count="3"/>)"));
  ASSERT_EQ(store.layers.size(), 2u);
  At(0, 0);
  store.NextFrame();
  EXPECT_FALSE(store.repaint);
  EXPECT_EQ(At(25, 5), (Pixel{0, 0, 0, 0}));
}

TEST_F(AnimatedPage, WithAnEmptyAnimationStandsStill) {
  Open(Image(20, 0, 10, 10, R"(<animation type="animation" count="0"/>)"));
  At(0, 0);
  store.NextFrame();
  EXPECT_FALSE(store.repaint);
}

TEST_F(AnimatedPage, WithoutAFrameRateStandsStill) {
  store.frameRateNum = 0;
  store.frameRateDen = 0;
  Open(Image(20, 0, 10, 10, TwoColours(1, true)));
  for (int frame = 0; frame < 10; ++frame) store.NextFrame();
  EXPECT_EQ(At(25, 5), kRedPixel);
}

TEST_F(AnimatedPage, WithTooManyFramesSaysSo) {
  try {
    Open(Image(20, 0, 10, 10, R"(<animation type="gif" count="2000000000"/>)"));
    FAIL();
  } catch (const std::exception& error) {
    EXPECT_STREQ(error.what(), "An animation may have at most 100000 frames");
  }
}

}  // namespace
}  // namespace authfilter
