#include "foundation/Error.h"
#include "tests/filter/MoviePage.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <thread>

namespace authfilter {
namespace {

using script::EError;
using script::EOperation;
using testing::ElementsAre;

class MovieLayers : public CMoviePage {
protected:
  std::string Kinds() const {
    std::string kinds;
    for (const auto& layer : store.layers) kinds += layer->IsExclusive() ? 'x' : 's';
    return kinds;
  }
  /// The upper left corner of a movie's picture, the first one being 0.
  static Pixel OfPicture(int number) {
    const auto pixel = script::PixelOf(number, 0, 0);
    return {pixel[0], pixel[1], pixel[2], pixel[3]};
  }

  const Pixel kGreenPixel{0, 255, 0, 255};
};

TEST_F(MovieLayers, AreMadeByTheKindsOfElements) {
  const std::string skin = Skin(State("normal", Place(10)));
  Open(Rectangle(0, 0, 10, 10, kRed) + Movie(10, 0, 16, 9) + Movie(30, 0, 16, 9) + Mirror(0, 10, 10, 10) +
       Button(50, 0, 16, 9, skin, Movie(0, 0, 1, 1)) + Rectangle(0, 0, 10, 10, kRed) + Button(70, 0, 16, 9, skin, "") +
       Button(90, 0, 16, 9, skin, Image(0, 0, 1, 1, TwoColours(1, true))) +
       Image(110, 0, 16, 9, TwoColours(100, true)) + Rectangle(0, 0, 10, 10, kRed));
  EXPECT_EQ(Kinds(), "sxxxxsxs");
  ASSERT_EQ(store.movieImages.size(), 4u);
  EXPECT_EQ(store.movieImages[0].get(), store.layers[1]->GetDocument()->GetElement(0).get());
  EXPECT_EQ(store.movieImages[1].get(), store.layers[2]->GetDocument()->GetElement(0).get());
  EXPECT_EQ(store.movieImages[2], nullptr);
  ASSERT_NE(store.movieImages[3], nullptr);
  EXPECT_EQ(Calls(backend, EOperation::getAnimationExtractor), 3);
}

TEST_F(MovieLayers, ThatCannotBeMadeLeaveThoseBefore) {
  SetPage(Rectangle(0, 0, 40, 40, kRed) + Movie(50, 0, 16, 9) + Movie(70, 0, 16, 9, "", "") + Movie(90, 0, 16, 9));
  EXPECT_THROW(store.Open(), orlo::CCastError);
  EXPECT_EQ(Kinds(), "sx");
  EXPECT_NO_THROW(store.Open());
  store.NextFrame();
  EXPECT_EQ(At(5, 5), kRedPixel);
  EXPECT_EQ(At(58, 4), kGreenPixel);
  store.Close();
}

TEST_F(MovieLayers, OfAButtonWhoseMovieImageHasNoMovieCannotBeMade) {
  SetPage(Button(50, 0, 16, 9, Skin(State("normal", Place(10))), Movie(0, 0, 1, 1, "", "")));
  EXPECT_THROW(store.Open(), orlo::CCastError);
}

TEST_F(MovieLayers, TellTheBackendRateFoldersAndSize) {
  store.frameRateNum = 30000;
  store.frameRateDen = 1001;
  store.filterBaseDir = "file:///filters";
  store.animationBaseDir = "file:///animations";
  store.themeBaseDir = "file:///themes";
  Open(Movie(10, 10, 32, 18));
  const script::CGiven given = backend->GetGiven();
  EXPECT_EQ(given.params.frameRateNum, 30000);
  EXPECT_EQ(given.params.frameRateDen, 1001);
  EXPECT_EQ(given.filterDir, "file:///filters");
  EXPECT_EQ(given.animationDir, "file:///animations");
  EXPECT_EQ(given.themeDir, "file:///themes");
  EXPECT_EQ(given.firstFrame, 0);
  EXPECT_EQ(given.flag, 1);
  EXPECT_EQ(given.params.width, 32);
  EXPECT_EQ(given.params.height, 18);
  EXPECT_THAT(given.seeks, ElementsAre());
}

TEST_F(MovieLayers, PlayFromAChapter) {
  Open(Movie(10, 10, 16, 9, R"(chapter="2")",
             File("", R"(<chapters><chapter timestamp="1"/><chapter timestamp="2.5"/></chapters>)")));
  EXPECT_THAT(backend->GetGiven().seeks, ElementsAre(2.5));
  EXPECT_EQ(backend->GetGiven().seekMode, 1);
}

TEST_F(MovieLayers, AskForARepaintForEachPictureAndKeepTheLast) {
  Open(Rectangle(0, 0, 160, 90, kBlue) + Movie(10, 10, 16, 9));
  EXPECT_EQ(At(10, 10), OfPicture(0));
  std::string asked;
  for (int frame = 0; frame < 5; ++frame) {
    store.NextFrame();
    asked += store.repaint ? 'x' : '.';
    EXPECT_EQ(At(10, 10), OfPicture(std::min(frame + 1, 2))) << frame;
  }
  EXPECT_EQ(asked, "xx...");
}

TEST_F(MovieLayers, StepAllMoviesEveryFrame) {
  Open(Movie(10, 10, 16, 9) + Movie(30, 10, 16, 9) + Image(60, 0, 10, 10, TwoColours(1, true)));
  const int before = Calls(backend, EOperation::advance);
  for (int frame = 0; frame < 3; ++frame) store.NextFrame();
  EXPECT_EQ(Calls(backend, EOperation::advance), before + 6);
  EXPECT_EQ(At(65, 5), kBluePixel);
}

TEST_F(MovieLayers, PassANewThreadOnToMoviesAlone) {
  Open(Movie(10, 10, 16, 9) + Movie(30, 10, 16, 9) + Image(60, 0, 10, 10, TwoColours(1, true)));
  const int before = Calls(backend, EOperation::setMessageTarget);
  store.NewThread();
  EXPECT_EQ(Calls(backend, EOperation::setMessageTarget), before + 2);
}

TEST_F(MovieLayers, AreOpenedOnce) {
  Open(Movie(10, 10, 16, 9));
  store.Open();
  EXPECT_EQ(Calls(backend, EOperation::getAnimationExtractor), 1);
  EXPECT_EQ(Kinds(), "x");
}

TEST_F(MovieLayers, ShowStillPicturesAgainWhenTheyAreClosed) {
  Open(Movie(10, 10, 16, 9) + Movie(30, 10, 16, 9));
  EXPECT_EQ(At(10, 10), OfPicture(0));
  store.Close();
  store.Close();
  EXPECT_TRUE(backend->WaitForCalls(EOperation::close, 2));
  EXPECT_TRUE(backend->WaitForNoneLiving());
  store.NextFrame();
  EXPECT_FALSE(store.repaint);
  const std::vector<std::uint8_t> input = Input();
  store.SetInputImage(input.data(), kWidth * 4);
  EXPECT_EQ(At(20, 14), kGreenPixel);
  store.NewThread();
}

TEST_F(MovieLayers, OfAnInstanceThatIsReleasedWithoutACloseEndTheirMovies) {
  {
    CInfoStore instance;
    instance.width = kWidth;
    instance.height = kHeight;
    SetPage(Movie(10, 10, 16, 9) + Movie(30, 10, 16, 9));
    std::swap(instance.pluginData, store.pluginData);
    instance.Open();
    instance.NextFrame();
    EXPECT_GT(backend->GetLiving(), 0);
  }
  EXPECT_TRUE(backend->WaitForNoneLiving());
}

TEST_F(MovieLayers, ShowStillPicturesOfWhatTheBackendCannotPlay) {
  backend->GiveNull(EOperation::getAnimationExtractor);
  Open(Movie(10, 10, 16, 9));
  store.NextFrame();
  EXPECT_EQ(At(15, 15), kGreenPixel);
}

TEST_F(MovieLayers, LetWhatTheBackendThrowsOutOfOpen) {
  for (const EError error :
       {EError::vantra, EError::rop, EError::sul, EError::orlo, EError::standard, EError::unknown}) {
    backend->Reset();
    backend->Throw(EOperation::getAnimationExtractor, error);
    CInfoStore instance;
    instance.width = kWidth;
    instance.height = kHeight;
    SetPage(Rectangle(0, 0, 40, 40, kRed) + Movie(50, 10, 16, 9));
    std::swap(instance.pluginData, store.pluginData);
    EXPECT_THROW(instance.Open(), std::exception);
    EXPECT_TRUE(instance.opened);
    instance.NextFrame();
    instance.BeginReadFrame();
    instance.EndReadFrame();
    instance.Close();
  }
  EXPECT_TRUE(backend->WaitForNoneLiving());
}

TEST_F(MovieLayers, LetOtherInstancesPaintWhileTheyAreOpened) {
  CInfoStore slow;
  slow.width = kWidth;
  slow.height = kHeight;
  SetPage(Movie(10, 10, 16, 9));
  std::swap(slow.pluginData, store.pluginData);
  backend->Block(EOperation::getAnimationExtractor);
  std::thread opener([&] { slow.Open(); });
  EXPECT_TRUE(backend->WaitForBlocked(EOperation::getAnimationExtractor));
  Open(Rectangle(0, 0, 40, 40, kRed));
  EXPECT_EQ(At(5, 5), kRedPixel);
  backend->LetGo(EOperation::getAnimationExtractor);
  opener.join();
  EXPECT_TRUE(slow.layers.at(0)->HasChanged());
}

TEST_F(MovieLayers, ShowTheStateThatIsAskedFor) {
  const std::string skin = Skin(State("normal", Picture(*wxRED)) + State("hover", Picture(*wxBLUE) + Place(60)));
  const std::string page = Button(0, 0, 40, 20, skin, "") + Button(50, 0, 40, 20, skin, Movie(0, 0, 1, 1));
  const struct {
    const char* state;
    Pixel plain;
    Pixel movie;
  } cases[] = {{"", kRedPixel, kRedPixel}, {"hover", kBluePixel, OfPicture(0)}};
  for (const auto& [state, plain, movie] : cases) {
    CInfoStore instance;
    std::swap(instance.width, store.width);
    std::swap(instance.height, store.height);
    SetPage(page);
    std::swap(instance.pluginData, store.pluginData);
    instance.state = state;
    instance.Open();
    const graphics::CPixels pixels = instance.BeginReadFrame();
    const auto pixel = [&](int x, int y) {
      const std::uint8_t* const bytes = pixels.Row(y) + x * 4;
      return Pixel{bytes[0], bytes[1], bytes[2], bytes[3]};
    };
    EXPECT_EQ(pixel(20, 10), plain) << state;
    EXPECT_EQ(pixel(70, 10)[0], movie[0]) << state;
    EXPECT_EQ(pixel(51, 1), plain) << state;
    std::swap(instance.width, store.width);
    std::swap(instance.height, store.height);
  }
}

TEST_F(MovieLayers, WithoutMoviesAreStaticAndNeedNoBackend) {
  ASSERT_TRUE(SetParam(store, "nomovies", "1"));
  Open(Movie(10, 10, 16, 9) +
       Button(50, 0, 40, 20, Skin(State("normal", Picture(*wxRED) + Place(30))), Movie(0, 0, 1, 1)) +
       Movie(100, 0, 10, 10, "", ""));
  EXPECT_EQ(Kinds(), "s");
  EXPECT_TRUE(store.movieImages.empty());
  EXPECT_EQ(At(15, 15), kGreenPixel);
  EXPECT_EQ(At(51, 1), kRedPixel);
  EXPECT_EQ(At(70, 10), kGreenPixel);
  EXPECT_EQ(Calls(backend, EOperation::createContext), 0);
}

/// Runs before all others: once there is a backend in a process, it stays.
class MovieLayersDeathTest : public CMovieXml {};

TEST_F(MovieLayersDeathTest, WithoutABackendSaySoAndMayBeClosed) {
  SetPage(Rectangle(0, 0, 40, 40, kRed) + Movie(50, 10, 16, 9));
  try {
    store.Open();
    FAIL();
  } catch (const std::exception& error) {
    EXPECT_STREQ(error.what(), "Could not load libvantraplugin.so");
  }
  EXPECT_NO_THROW(store.Open());
  store.NextFrame();
  EXPECT_EQ(At(5, 5), kRedPixel);
  EXPECT_EQ(At(55, 15), (Pixel{0, 255, 0, 255}));
  store.NewThread();
  store.Close();
}

}  // namespace
}  // namespace authfilter
