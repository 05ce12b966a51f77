#include "tests/filter/MoviePage.h"
#include "tests/filter/RepaintPage.h"

#include <wx/gdicmn.h>

namespace authfilter {
namespace {

class MovieRepaint : public CRepaintPage<CMoviePage> {
protected:
  MovieRepaint() {
    backend->SetSize(37, 21);
    backend->SetPictures(1000);
  }
  /// Compares each of so many frames with a plain and full painting.
  void ExpectRightFrames(int count, int tolerance = 0) {
    for (int frame = 1; frame <= count; ++frame) {
      store.NextFrame();
      ASSERT_EQ(Difference(tolerance), "") << frame;
    }
  }
};

TEST_F(MovieRepaint, UnderNoAlphaPaintsTheMoviesAndNothingElse) {
  OpenOnBlack(Rectangle(0, 0, 160, 90, kGreenHalf) + Movie(10, 10, 16, 9) + Movie(100, 10, 16, 9) +
              Movie(10, 70, 16, 9) + Movie(100, 70, 16, 9));
  for (int frame = 1; frame < 10; ++frame) {
    const wxRect painted = RepaintedAtNextFrame();
    EXPECT_TRUE(painted.Contains(wxRect(10, 10, 106, 69))) << frame;
    EXPECT_EQ(pixelsWritten, 4 * 16 * 9);
    EXPECT_EQ(Difference(), "") << frame;
  }
}

TEST_F(MovieRepaint, PaintsNothingOfAMovieThatHasEnded) {
  backend->SetPictures(3);
  OpenOnBlack(Rectangle(0, 0, 160, 90, kBlue) + Movie(10, 10, 16, 9));
  std::string painted;
  for (int frame = 1; frame < 8; ++frame) {
    painted += RepaintedAtNextFrame().IsEmpty() ? '.' : 'x';
    EXPECT_EQ(Difference(), "") << frame;
  }
  EXPECT_EQ(painted, "xx.....");
}

TEST_F(MovieRepaint, PaintsAMovieThatEndsWhileOthersRun) {
  // The second one shares the backend's pictures with an animation that goes on.
  backend->SetPictures(3);
  OpenOnBlack(Movie(10, 10, 40, 30) + Image(30, 20, 50, 20, TwoColours(1, true)) +
              Rectangle(20, 0, 10, 90, kGreenHalf));
  ExpectRightFrames(10);
}

TEST_F(MovieRepaint, OfMoviesBelowTranslucentOnes) {
  OpenOnBlack(Rectangle(0, 0, 160, 90, kGreenHalf) + Movie(10, 10, 60, 40) + Rectangle(5, 5, 40, 40, kGreenHalf) +
              Movie(50, 20, 60, 40, R"(rotation="20")") + Rectangle(30, 0, 30, 90, kGreenHalf) +
              Image(40, 30, 30, 30, TwoColours(60, true)));
  // A turned movie is two things one over the other, its ground and its picture. At its smooth edges the plain painter
  // lays each of them over what is below, and rounds once more.
  ExpectRightFrames(100, 1);
}

TEST_F(MovieRepaint, InAllScaleModes) {
  for (const std::string mode : {"scale-width", "scale-height", "scale-fitting"}) {
    for (const std::string turned : {"", R"(rotation="30")", R"(mirror-x="true")"}) {
      store.layers.clear();
      store.movieImages.clear();
      store.opened = store.paintedOnBlack = false;
      store.repaint = true;
      plain.reset();
      // Higher than wide: as high as the frame a picture is wider than that.
      OpenOnBlack(Rectangle(0, 0, 160, 90, kBlue) + Movie(70, 20, 20, 50, turned + " scale-mode=\"" + mode + "\"") +
                  Movie(5, 60, 40, 10, turned + " scale-mode=\"" + mode + "\""));
      SCOPED_TRACE(mode + turned);
      ExpectRightFrames(10);
      EXPECT_LT(RepaintedAtNextFrame().width, kWidth);
    }
  }
}

TEST_F(MovieRepaint, InsideSkinsWithShapesAndTexts) {
  wxImage picture(240, 150);
  picture.SetRGB(wxRect(20, 30, 200, 90), 250, 100, 40);
  const std::string skin = Skin(State("normal", Picture(picture) + Place(40, Shape()) + Text()));
  OpenOnBlack(Rectangle(0, 0, 160, 90, kGreenHalf) + Button(10, 10, 40, 25, skin, Movie(0, 0, 1, 1)) +
              Button(35, 20, 40, 25, skin, Movie(0, 0, 1, 1, R"(rotation="10")")) +
              Rectangle(30, 0, 10, 90, kGreenHalf) + Movie(100, 10, 40, 25, "", File() + skin) +
              Mirror(10, 50, 40, 25));
  ExpectRightFrames(10);
  RepaintedAtNextFrame();
  EXPECT_LT(pixelsWritten, kWidth * kHeight / 2);
}

TEST_F(MovieRepaint, PaintsNothingForASkinWithoutAPlaceForTheMovie) {
  OpenOnBlack(Button(10, 10, 40, 25, Skin(State("normal", Picture(*wxRED))), Movie(0, 0, 1, 1)));
  for (int frame = 1; frame < 5; ++frame) {
    EXPECT_TRUE(RepaintedAtNextFrame().IsEmpty());
    EXPECT_EQ(Difference(), "");
  }
}

TEST_F(MovieRepaint, PaintsMirrorsOfMoviesWhereverTheyStand) {
  // The mirror comes before the movie, whose animation is made after it.
  OpenOnBlack("<mirror>" + Frame(20, 50, 40, 25) + "<graphic-document>" + Movie(20, 25, 40, 25, R"(unique="7")") +
              R"(</graphic-document></mirror><animation type-name="movie-image" unique="7"/>)" +
              Rectangle(30, 0, 10, 90, kGreenHalf));
  ASSERT_EQ(store.layers.size(), 3u);
  const Pixel before = At(25, 55);
  for (int frame = 1; frame < 20; ++frame) {
    EXPECT_TRUE(RepaintedAtNextFrame().Contains(wxRect(20, 25, 40, 50))) << frame;
    EXPECT_EQ(Difference(), "") << frame;
  }
  EXPECT_NE(At(25, 55), before);
}

TEST_F(MovieRepaint, WithAndWithoutAnInput) {
  const std::vector<std::uint8_t> input = Input();
  OpenOnBlack(Rectangle(0, 0, 40, 90, kGreenHalf) + Movie(20, 10, 40, 25) + Rectangle(30, 0, 10, 90, kGreenHalf));
  for (int frame = 1; frame < 60; ++frame) {
    store.NextFrame();
    if (frame % 7 == 0) {
      store.noAlpha = !store.noAlpha;
      store.SetInputImage(input.data(), kWidth * 4);
    }
    ASSERT_EQ(Difference(), "") << frame;
  }
}

TEST_F(MovieRepaint, PaintsStillPicturesWhenItIsClosed) {
  OpenOnBlack(Rectangle(0, 0, 160, 90, kBlue) + Movie(10, 10, 16, 9));
  ExpectRightFrames(3);
  store.Close();
  store.repaint = true;
  EXPECT_TRUE(Repainted().Contains(wxRect(10, 10, 16, 9)));
  EXPECT_EQ(Difference(), "");
}

TEST_F(MovieRepaint, HidesWhatLiesBelowOnlyWithThePictureThatIsShown) {
  OpenOnBlack(Rectangle(0, 0, 160, 90, kBlue) + Movie(20, 10, 37, 21));
  EXPECT_TRUE(store.layers[1]->Hides(wxRect(20, 10, 37, 21)));
  EXPECT_FALSE(store.layers[1]->Hides(wxRect(19, 10, 37, 21)));
  store.NextFrame();
  EXPECT_FALSE(store.layers[1]->Hides(wxRect(20, 10, 37, 21)));
}

}  // namespace
}  // namespace authfilter
