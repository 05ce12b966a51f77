#include "tests/ffmpeg/Sequence.h"

using namespace vantra;
using testing::ElementsAre;
using testing::ElementsAreArray;

namespace {

std::string Numbers() {
  return Movie("numbers.mkv", NumberedFrames("25", 50) + " -c:v libx264 -preset ultrafast -pix_fmt yuv420p");
}

std::string ColourPicture(const std::string& colour, const std::string& size = "160x96") {
  return Movie("colour-" + colour + "-" + size + ".png",
               "-f lavfi -i \"color=c=0x" + colour + ":s=" + size + ",format=rgb24\" -frames:v 1");
}

constexpr CColour kRed{255, 0, 0, 255};
constexpr CColour kGreen{0, 255, 0, 255};
constexpr CColour kNothing{0, 0, 0, 0};

}  // namespace

TEST(Timeline, BeginsAClipWhereItSays) {
  EXPECT_THAT(NumbersOf(InfileOf(Numbers(), "starttime=\"0.8\""), 3), ElementsAre(20, 21, 22));
}

TEST(Timeline, EndsAClipAfterItsDuration) {
  const auto extractor = Play(InfileOf(Numbers(), "duration=\"0.2\" starttime=\"0.4\""));
  EXPECT_THAT(NumbersOf(*extractor, 4), ElementsAre(11, 12, 13, 14));
  EXPECT_FALSE(extractor->Advance());
  EXPECT_EQ(NumberOf(*extractor), 14);
}

TEST(Timeline, KeepsTheLastPictureOfAMovieThatEndsBeforeItsClip) {
  EXPECT_THAT(NumbersOf(InfileOf(Numbers(), "starttime=\"1.92\" duration=\"1\""), 4), ElementsAre(48, 49, 49, 49));
}

TEST(Timeline, ShowsClipsAfterOneAnother) {
  const std::string infile = Infile(Track(Video(Numbers(), "starttime=\"0.4\""), "duration=\"0.12\"") +
                                    Track(Video(Numbers(), "starttime=\"1\""), "start=\"0.12\" duration=\"0.08\"") +
                                    Track(Video(Numbers()), "start=\"0.2\" duration=\"0.08\""));
  EXPECT_THAT(NumbersOf(infile, 9), ElementsAre(10, 11, 12, 25, 26, 0, 1, 1, 1));
}

TEST(Timeline, EndsAClipOnTheFrameWhereverItBegins) {
  // 21 / 30 - 0.2 is a hair less than 0.5.
  const std::string infile = Infile(Track(Video(ColourPicture("ff0000"))) +
                                    Track(Video(Numbers(), "duration=\"0.5\""), "start=\"0.2\" duration=\"1.5\""));
  const auto extractor = Play(infile, ParamsAtRate(30, 1));
  const std::vector<int> numbers = NumbersOf(*extractor, 20);
  EXPECT_EQ(numbers.back(), 11);
  extractor->Advance();
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 50, 50), kRed, 0);
}

TEST(Timeline, ShowsNothingBetweenClipsThatLieApart) {
  const std::string infile = Infile(Track(Video(ColourPicture("ff0000")), "duration=\"0.2\"") +
                                    Track(Video(ColourPicture("00ff00")), "start=\"1\" duration=\"0.2\""));
  const auto extractor = Play(infile);
  for (int frame = 1; frame < 5; ++frame) EXPECT_FALSE(extractor->Advance());
  for (int frame = 5; frame < 20; ++frame) extractor->Advance();
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 50, 50), kNothing, 0);
  for (int frame = 20; frame < 27; ++frame) extractor->Advance();
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 50, 50), kGreen, 0);
}

TEST(Timeline, BridgesAGapThatComesFromRounding) {
  const std::string infile = Infile(Track(Video(ColourPicture("ff0000")), "duration=\"0.11\"") +
                                    Track(Video(ColourPicture("00ff00")), "start=\"0.13\" duration=\"1\""));
  const auto extractor = Play(infile);
  for (int frame = 1; frame < 4; ++frame) {
    extractor->Advance();
    EXPECT_PRED3(IsNear, PixelAt(*extractor, 50, 50), kRed, 0);
  }
  extractor->Advance();
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 50, 50), kGreen, 0);
}

TEST(Timeline, LaysTracksOverOneAnother) {
  const std::string infile =
      Infile(Track(Video(ColourPicture("ff0000", "320x192"))) +
             Track(Video(Numbers()), "x=\"80\" y=\"48\" width=\"160\" height=\"96\"") +
             Track(Video(ColourPicture("00ff00")), "x=\"300\" y=\"180\" width=\"40\" height=\"24\""));
  const auto extractor = Play(infile);
  EXPECT_EQ(extractor->GetWidth(), 320);
  EXPECT_EQ(NumberIn(*extractor, 80, 48, 160, 96), 0);
  extractor->Advance();
  EXPECT_EQ(NumberIn(*extractor, 80, 48, 160, 96), 1);
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 10, 10), kRed, 0);
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 79, 100), kRed, 0);
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 319, 191), kGreen, 0);
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 299, 185), kRed, 0);
}

TEST(Timeline, ScalesPlacesWithTheWhole) {
  const std::string infile = Infile(Track(Video(ColourPicture("ff0000", "320x192"))) +
                                    Track(Video(Numbers()), "x=\"160\" y=\"96\" width=\"160\" height=\"96\""));
  const auto extractor = Play(infile, Params(480));
  EXPECT_EQ(extractor->GetHeight(), 288);
  EXPECT_EQ(NumberIn(*extractor, 240, 144, 240, 144), 0);
}

TEST(Timeline, FitsMoviesOfOtherProportionsIntoTheWhole) {
  const auto extractor = Play(Infile(Track(Video(ColourPicture("ff0000", "200x100")), "duration=\"0.04\"") +
                                     Track(Video(ColourPicture("00ff00", "50x50")), "start=\"0.04\" duration=\"1\"")));
  extractor->Advance();
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 100, 50), kGreen, 0);
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 51, 50), kGreen, 0);
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 48, 50), kNothing, 0);
}

TEST(Timeline, HoldsAllPlacesIfNothingFillsTheWhole) {
  const auto extractor =
      Play(Infile(Track(Video(ColourPicture("ff0000")), "x=\"20\" y=\"10\" width=\"100\" height=\"50\"") +
                  Track(Video(ColourPicture("00ff00")), "x=\"50\" y=\"30\" width=\"30\"")));
  EXPECT_EQ(extractor->GetWidth(), 120);
  EXPECT_EQ(extractor->GetHeight(), 60);
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 50, 47), kGreen, 0);
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 50, 48), kRed, 0);
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 5, 5), kNothing, 0);
}

TEST(Timeline, PassesOverTracksThatAreNotEnabled) {
  const auto extractor =
      Play(Infile(Track(Video(ColourPicture("ff0000"))) + Track(Video("/nowhere.mp4"), "enabled=\"0\"")));
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 50, 50), kRed, 0);
}

TEST(Timeline, RepeatsLoops) {
  const std::string clip = Video(Numbers(), "starttime=\"0.4\" duration=\"0.16\"");
  EXPECT_THAT(NumbersOf(Infile(Track("<loop>" + clip + "</loop>", "duration=\"0.4\"")), 12),
              ElementsAre(10, 11, 12, 13, 10, 11, 12, 13, 10, 11, 11, 11));
}

TEST(Timeline, RepeatsLongLoopsForEver) {
  const auto extractor = Play(Infile(Track("<loop>" + Video(Numbers()) + "</loop>")));
  std::vector<int> expected;
  for (int frame = 1; frame < 180; ++frame) expected.push_back(frame % 50);
  EXPECT_EQ(NumbersOf(*extractor, 179), expected);
}

TEST(Timeline, PlaysListsWithinLists) {
  const std::string inner = "<videotracklist duration=\"0.2\">" + Track(Video(ColourPicture("ff0000", "100x50"))) +
                            Track(Video(Numbers()), "x=\"50\" y=\"0\" width=\"50\" height=\"50\" start=\"0.04\"") +
                            "</videotracklist>";
  const std::string infile = Infile(Track(Video(ColourPicture("00ff00", "400x100"))) +
                                        Track(inner, "x=\"200\" y=\"0\" width=\"200\" height=\"100\" start=\"0.04\""),
                                    "duration=\"1\"");
  const auto extractor = Play(infile);
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 390, 10), kGreen, 0);
  extractor->Advance();
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 390, 10), kRed, 0);
  for (int frame = 2; frame < 6; ++frame) {
    extractor->Advance();
    EXPECT_EQ(NumberIn(*extractor, 300, 0, 100, 100), frame - 2);
    EXPECT_PRED3(IsNear, PixelAt(*extractor, 290, 10), kRed, 0);
  }
  extractor->Advance();
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 390, 10), kGreen, 0);
}

TEST(Timeline, CutsAtTheDurationOfTheList) {
  const auto extractor = Play(Infile(Track(Video(Numbers())), "duration=\"0.12\""));
  EXPECT_THAT(NumbersOf(*extractor, 4), ElementsAre(1, 2, 2, 2));
}

TEST(Timeline, TakesNoNoticeOfSound) {
  EXPECT_THAT(NumbersOf("<infile><audiotracklist><track><audio src=\"silent\" duration=\"9\"/></track></audiotracklist>"
                        "<videotracklist>" +
                            Track(Video(Numbers())) + "</videotracklist></infile>",
                        3),
              ElementsAre(0, 1, 2));
}

TEST(Timeline, LeavesFiltersAndShadersOutAndSaysSo) {
  const std::string shown = Track(Video(ColourPicture("ff0000")));
  const auto extractor = Play(Infile(shown + Track("<shader uri=\"x.glsl\"/>")));
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 50, 50), kRed, 0);
  ASSERT_TRUE(Open(Infile(shown + Track("<filter src=\"x\"/>"))));
  EXPECT_EQ(LastCode(), 8);
  EXPECT_EQ(LastText(), "A filter has been left out");
  EXPECT_FALSE(Open(Infile(Track("<shader/>"))));
  EXPECT_EQ(LastText(), "A shader has been left out");
}

TEST(Timeline, PlaysAHundredPassesOfAMovie) {
  std::string tracks;
  for (int pass = 0; pass < 100; ++pass)
    tracks +=
        Track(Video(Numbers(), "duration=\"0.2\""), "start=\"" + std::to_string(pass * 0.2) + "\" duration=\"0.2\"");
  const auto extractor = Play(Infile(tracks));
  std::vector<int> expected;
  for (int frame = 1; frame < 500; ++frame) expected.push_back(frame % 5);
  EXPECT_EQ(NumbersOf(*extractor, 499), expected);
  EXPECT_FALSE(extractor->Advance());
}

TEST(Timeline, PlaysAFramesPictureWithoutACopyOfIt) {
  const auto extractor = Play(InfileOf(Numbers()));
  const std::uint8_t* pixels = nullptr;
  const std::uint8_t* again = nullptr;
  std::int32_t stride = 0;
  extractor->LockFrame(&pixels, &stride);
  EXPECT_GE(stride, 160 * 4);
  const int number = 0;
  extractor->Advance();
  // What is locked stays, whatever is decoded meanwhile.
  EXPECT_LT(pixels[2], 128) << number;
  extractor->UnlockFrame();
  extractor->LockFrame(&again, &stride);
  EXPECT_GT(again[static_cast<std::ptrdiff_t>(20) * stride + 10 * 4 + 2], 128);
  extractor->UnlockFrame();
}
