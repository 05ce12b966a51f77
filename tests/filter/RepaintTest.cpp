#include "filter/ExclusiveLayer.h"
#include "tests/filter/AnimatedPage.h"
#include "tests/filter/RepaintPage.h"

#include <wx/gdicmn.h>

#include <atomic>
#include <chrono>
#include <future>
#include <thread>

namespace authfilter {
namespace {

class Repaint : public CRepaintPage<CAnimatedPage> {};

TEST_F(Repaint, UnderNoAlphaPaintsOnlyWhereThePictureChanges) {
  OpenOnBlack(Rectangle(0, 0, 160, 90, kBlue) + Image(20, 10, 30, 20, TwoColours(100, true)));
  for (int frame = 1; frame < 12; ++frame) {
    const wxRect painted = RepaintedAtNextFrame();
    if (frame % 3 != 0) {
      EXPECT_TRUE(painted.IsEmpty()) << frame;
      continue;
    }
    EXPECT_TRUE(painted.Contains(wxRect(20, 10, 30, 20))) << frame;
    EXPECT_TRUE(wxRect(18, 8, 34, 24).Contains(painted)) << frame;
    EXPECT_EQ(Difference(), "") << frame;
  }
}

TEST_F(Repaint, TakesNoLockWhileThePicturesStay) {
  OpenOnBlack(Rectangle(0, 0, 160, 90, kBlue) + Image(20, 10, 30, 20, TwoColours(100, true)));
  std::promise<void> held, done;
  std::atomic<bool> gaveUp = false;
  std::thread holder([&] {
    const graphics::CToolkitLock lock;
    held.set_value();
    gaveUp = done.get_future().wait_for(std::chrono::seconds(20)) == std::future_status::timeout;
  });
  held.get_future().wait();
  store.NextFrame();
  EXPECT_TRUE(store.repaint);
  store.BeginReadFrame();
  store.EndReadFrame();
  done.set_value();
  holder.join();
  EXPECT_FALSE(gaveUp);
}

TEST_F(Repaint, OverAnInputPaintsAllOfIt) {
  std::vector<std::uint8_t> input = Input();
  Open(Image(20, 10, 30, 20, TwoColours(100, true)));
  store.SetInputImage(input.data(), kWidth * 4);
  At(0, 0);
  // The host may have painted a new picture into the same memory.
  EXPECT_EQ(RepaintedAtNextFrame(), wxRect(0, 0, kWidth, kHeight));
}

TEST_F(Repaint, OverWhatWasThereBeforePaintsAllAgain) {
  Open(Rectangle(0, 0, 160, 90, kGreenHalf) + Image(20, 10, 30, 20, TwoColours(1000, true)));
  const Pixel once = At(100, 50);
  store.NextFrame();
  EXPECT_GT(At(100, 50)[3], once[3]);
  EXPECT_EQ(once[3], 128);
}

TEST_F(Repaint, OfAnInputUnderNoAlphaPaintsNothing) {
  const std::vector<std::uint8_t> input = Input();
  OpenOnBlack(Rectangle(0, 0, 10, 10, kBlue));
  store.SetInputImage(input.data(), kWidth * 4);
  EXPECT_TRUE(store.repaint);
  EXPECT_TRUE(Repainted().IsEmpty());
  EXPECT_EQ(At(50, 50), (Pixel{0, 0, 0, 255}));
}

TEST_F(Repaint, PaintsAllWhenNoAlphaIsSwitchedOnAndOff) {
  std::vector<std::uint8_t> input = Input();
  OpenOnBlack(Rectangle(0, 0, 40, 90, kGreenHalf) + Image(20, 10, 30, 20, TwoColours(100, true)));
  store.NextFrame();
  store.noAlpha = false;
  store.SetInputImage(input.data(), kWidth * 4);
  EXPECT_EQ(At(100, 50), (Pixel{100, 50, 5000 % 256, 255}));
  EXPECT_EQ(Difference(), "");
  store.NextFrame();
  store.noAlpha = true;
  EXPECT_EQ(At(100, 50), (Pixel{0, 0, 0, 255}));
  store.NextFrame();
  EXPECT_EQ(Difference(), "");
  // Nothing is painted between the two: the frame is what it was.
  store.noAlpha = false;
  store.NextFrame();
  store.noAlpha = true;
  EXPECT_TRUE(Repainted().IsEmpty());
}

TEST_F(Repaint, OfTwoImagesWithOneAnimationPaintsBoth) {
  // The second one stands for the same element, which is stepped once for each place where it stands.
  OpenOnBlack(Image(20, 10, 30, 20, TwoColours(100, true), R"(unique="7")") + Rectangle(100, 50, 10, 10, kGreenHalf) +
              R"(<animation type="animation-image" unique="7"/>)");
  ASSERT_EQ(store.layers.size(), 3u);
  ASSERT_EQ(store.layers[0]->GetDocument()->GetElement(0), store.layers[2]->GetDocument()->GetElement(0));
  std::string painted;
  for (int frame = 1; frame <= 12; ++frame) {
    painted += RepaintedAtNextFrame().IsEmpty() ? '.' : 'x';
    EXPECT_EQ(Difference(), "") << frame;
  }
  // Both step in the same frame, once on and once back again: there is nothing new to see.
  EXPECT_EQ(painted, "............");
}

TEST_F(Repaint, OfTwoElementsThatShareAnAnimationPaintsBoth) {
  OpenOnBlack(Image(20, 10, 30, 20, TwoColours(100, true)) + Image(100, 10, 30, 20, ""));
  // The second element has no layer's wrapper on the animation: only the first one steps it.
  const auto first = store.layers[0]->GetDocument()->GetElement(0);
  auto page = orlo::makeObject<graphics::CGraphicDocument>();
  const auto second = first->Clone();
  second->SetCenter({115, 20});
  page->Add(second);
  store.layers[1] = orlo::makeObject<CExclusiveLayer>(page, 0, 0);
  store.paintedOnBlack = false;
  store.repaint = true;
  At(0, 0);
  for (int frame = 1; frame <= 6; ++frame) {
    const wxRect painted = RepaintedAtNextFrame();
    EXPECT_EQ(painted.Contains(wxRect(20, 10, 110, 20)), frame % 3 == 0) << frame;
    EXPECT_EQ(Difference(), "") << frame;
  }
}

TEST_F(Repaint, OfOverlappingAnimationsKeepsTheirOrder) {
  OpenOnBlack(Image(20, 10, 40, 40, TwoColours(100, true)) +
              Image(40, 30, 40, 40, TwoColours(60, true), R"(rotation="20")") + Rectangle(50, 0, 10, 90, kGreenHalf));
  for (int frame = 1; frame < 40; ++frame) {
    store.NextFrame();
    EXPECT_EQ(Difference(), "") << frame;
  }
}

TEST_F(Repaint, LeavesOutWhatAnOpaqueAnimationHides) {
  OpenOnBlack(Rectangle(0, 0, 160, 90, kBlue) + Image(20, 10, 40, 40, TwoColours(1, true)) +
              Rectangle(30, 0, 10, 90, kGreenHalf));
  for (int frame = 1; frame < 6; ++frame) {
    store.NextFrame();
    EXPECT_EQ(Difference(), "") << frame;
    EXPECT_TRUE(store.layers[1]->Hides(wxRect(20, 10, 40, 40)));
    EXPECT_FALSE(store.layers[1]->Hides(wxRect(19, 10, 40, 40)));
  }
}

TEST_F(Repaint, PaintsNothingWhenWhatIsHiddenStays) {
  // A mirror and an animation below one that covers both, and that is half transparent in its second second.
  wxImage half(4, 4);
  half.InitAlpha();
  for (int i = 0; i < 16; ++i) half.SetAlpha(i % 4, i / 4, 128);
  const std::string cover = R"(<animation type="animation" count="2" delay="1000" loop="true">)" +
                            Bitmap("frame0", *wxGREEN) + Bitmap("frame1", half) + "</animation>";
  OpenOnBlack(Image(20, 10, 30, 20, TwoColours(100, true), R"(unique="7")") + "<mirror>" + Frame(20, 35, 30, 20) +
              R"(<graphic-document><animation type="animation-image" unique="7"/>)" +
              Image(30, 12, 5, 5, TwoColours(1, true)) + "</graphic-document></mirror>" + Image(10, 5, 60, 60, cover));
  ASSERT_EQ(store.layers.size(), 3u);
  std::string painted;
  for (int frame = 1; frame < 100; ++frame) {
    painted += RepaintedAtNextFrame().IsEmpty() ? '.' : 'x';
    EXPECT_EQ(Difference(), "") << frame;
  }
  EXPECT_EQ(painted.substr(0, 24), "..x..x..x..x..x..x..x..x");
}

TEST_F(Repaint, OfSeparateAnimationsLeavesOutWhatLiesBetween) {
  OpenOnBlack(Rectangle(0, 0, 160, 90, kBlue) + Image(0, 0, 20, 20, TwoColours(1, true)) +
              Image(140, 70, 20, 20, TwoColours(1, true)));
  store.NextFrame();
  std::uint8_t* const between = store.pageSurface->Pixels().Row(45) + 80 * 4;
  between[0] = 77;
  EXPECT_EQ(At(80, 45)[0], 77);
  EXPECT_EQ(At(10, 10), kBluePixel);
  EXPECT_EQ(At(150, 80), kBluePixel);
}

TEST_F(Repaint, PaintsAMirrorWhenWhatItMirrorsMoves) {
  OpenOnBlack(Image(20, 10, 30, 20, TwoColours(100, true), R"(unique="7")") + "<mirror>" + Frame(20, 35, 30, 20) +
              R"(<graphic-document><animation type="animation-image" unique="7"/></graphic-document></mirror>)" +
              "<mirror>" + Frame(100, 35, 30, 20) + "<graphic-document>" + Rectangle(100, 15, 30, 20, kRed) +
              "</graphic-document></mirror>");
  ASSERT_EQ(store.layers.size(), 3u);
  EXPECT_EQ(At(25, 45)[0], 0);
  EXPECT_GT(At(25, 45)[2], 0);
  for (int frame = 1; frame < 10; ++frame) {
    const wxRect painted = RepaintedAtNextFrame();
    EXPECT_EQ(painted.IsEmpty(), frame % 3 != 0) << frame;
    EXPECT_LT(painted.GetRight(), 60) << frame;
    EXPECT_EQ(Difference(), "") << frame;
    if (frame == 3) {
      EXPECT_GT(At(25, 45)[0], 0);
    }
  }
}

TEST_F(Repaint, PaintsAMirrorAgainWhereAnAnimationLiesBelow) {
  OpenOnBlack(Image(20, 10, 30, 40, TwoColours(100, true)) + "<mirror>" + Frame(30, 30, 30, 40) + "<graphic-document>" +
              Rectangle(30, 0, 30, 30, kBlue) + "</graphic-document></mirror>" + Rectangle(0, 40, 90, 10, kGreenHalf));
  for (int frame = 1; frame < 10; ++frame) {
    store.NextFrame();
    EXPECT_EQ(Difference(), "") << frame;
  }
}

TEST_F(Repaint, PaintsNothingAfterTheEndOfAnAnimation) {
  OpenOnBlack(Rectangle(0, 0, 160, 90, kBlue) + Image(20, 10, 30, 20, TwoColours(100, false)));
  std::string painted;
  for (int frame = 1; frame <= 12; ++frame) {
    painted += RepaintedAtNextFrame().IsEmpty() ? '.' : 'x';
    EXPECT_EQ(Difference(), "") << frame;
  }
  EXPECT_EQ(painted, "..x.........");
}

TEST_F(Repaint, PaintsTheFirstPictureAgainWhenItIsClosed) {
  OpenOnBlack(Image(20, 10, 30, 20, TwoColours(100, true)));
  for (int frame = 0; frame < 3; ++frame) store.NextFrame();
  EXPECT_EQ(At(25, 15), kBluePixel);
  store.Close();
  EXPECT_TRUE(RepaintedAtNextFrame().Contains(wxRect(20, 10, 30, 20)));
  EXPECT_EQ(At(25, 15), kRedPixel);
}

TEST_F(Repaint, PaintsNothingOfInvisibleAndDistantAnimations) {
  OpenOnBlack(Rectangle(0, 0, 160, 90, kBlue) + Image(20, 10, 30, 20, TwoColours(1, true), R"(visible="false")") +
              Image(500, 10, 30, 20, TwoColours(1, true)) + R"(<mirror visible="false">)" + Frame(60, 35, 30, 20) +
              "<graphic-document>" + Image(60, 15, 30, 20, TwoColours(1, true)) + "</graphic-document></mirror>");
  for (int frame = 1; frame < 5; ++frame) {
    EXPECT_TRUE(RepaintedAtNextFrame().IsEmpty()) << frame;
    EXPECT_EQ(Difference(), "") << frame;
  }
}

TEST_F(Repaint, SurvivesPlacesThatAreNoNumbersOrFarAway) {
  std::string elements = Rectangle(0, 0, 160, 90, kBlue);
  for (const std::string number : {"nan", "inf", "-inf", "1e300", "-1e300", "1e9", "-1e-320"})
    for (const std::string size : {"nan", "inf", "-20", "1e300", "0", "1e9"})
      elements += R"(<animation type="animation-image" rotation=")" + number + R"("><center x=")" + number +
                  R"(" y="30"/><size width=")" + size + R"(" height="20"/>)" + TwoColours(1, true) + "</animation>" +
                  R"(<mirror><center x=")" + number + R"(" y="30"/><size width=")" + size +
                  R"(" height="20"/><graphic-document>)" + Image(60, 15, 30, 20, TwoColours(1, true)) +
                  "</graphic-document></mirror>";
  OpenOnBlack(elements);
  for (int frame = 1; frame < 4; ++frame) {
    store.NextFrame();
    EXPECT_EQ(Difference(), "") << frame;
  }
}

TEST_F(Repaint, AfterAnErrorPaintsAllOfTheFrame) {
  // Each mirror shows the one above it.
  std::string nested;
  for (int depth = 9; depth >= 0; --depth)
    nested =
        "<mirror>" + Frame(0, 40 - 20 * depth, 30, 20) + "<graphic-document>" + nested + "</graphic-document></mirror>";
  store.noAlpha = true;
  Open(Image(20, 10, 30, 20, TwoColours(100, true)) + nested);
  EXPECT_ANY_THROW(store.BeginReadFrame());
  EXPECT_FALSE(store.paintedOnBlack);
  store.layers.pop_back();
  store.NextFrame();
  EXPECT_EQ(Difference(), "");
}

}  // namespace
}  // namespace authfilter
