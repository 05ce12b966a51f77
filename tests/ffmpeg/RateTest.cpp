#include "tests/ffmpeg/Sequence.h"

#include <algorithm>
#include <cmath>

using testing::ElementsAreArray;

namespace {

constexpr const char* kFast = " -c:v libx264 -preset ultrafast -pix_fmt yuv420p";

std::string AtRate(const std::string& rate, int count, const std::string& extension) {
  std::string name("rate-");
  name.append(rate).append(".").append(extension);
  std::replace(name.begin(), name.end(), '/', '_');
  return Movie(name, NumberedFrames(rate, count) + kFast);
}

struct CRates {
  int num;
  int den;
  int hostNum;
  int hostDen;
};

class Rates : public testing::TestWithParam<CRates> {};

}  // namespace

/// The frame n of a source begins at n / rate, which Matroska rounds to milliseconds; the host's frame k shows the last
/// one that has begun.
TEST_P(Rates, ShowTheFrameOfEachTime) {
  const CRates rates = GetParam();
  for (const char* extension : {"mp4", "mkv"}) {
    const std::string movie = AtRate(std::to_string(rates.num) + "/" + std::to_string(rates.den), 60, extension);
    SKIP_WITHOUT(movie);
    const bool isRounded = std::string(extension) == "mkv";
    std::vector<double> begins;
    for (int number = 0; number < 60; ++number) {
      const double begin = 1000.0 * number * rates.den / rates.num;
      begins.push_back(isRounded ? std::round(begin) - 0.5 : begin - 1e-6);
    }
    std::vector<int> expected;
    for (int frame = 0; frame < 40; ++frame) {
      const double time = 1000.0 * frame * rates.hostDen / rates.hostNum;
      const double end = 1000.0 * 60 * rates.den / rates.num;
      const auto behind = std::upper_bound(begins.begin(), begins.end(), time);
      expected.push_back(time < end - 0.5 ? static_cast<int>(behind - begins.begin()) - 1 : expected.back());
    }
    EXPECT_THAT(NumbersOf(InfileOf(movie), 40, ParamsAtRate(rates.hostNum, rates.hostDen)), ElementsAreArray(expected))
        << extension;
  }
}

INSTANTIATE_TEST_SUITE_P(Of, Rates,
                         testing::Values(CRates{24000, 1001, 24000, 1001}, CRates{24000, 1001, 25, 1},
                                         CRates{24000, 1001, 30000, 1001}, CRates{25, 1, 25, 1}, CRates{25, 1, 50, 1},
                                         CRates{25, 1, 30000, 1001}, CRates{30000, 1001, 25, 1},
                                         CRates{30000, 1001, 30000, 1001}, CRates{50, 1, 25, 1}, CRates{50, 1, 24, 1}),
                         [](const auto& one) {
                           const CRates& rates = one.param;
                           return std::to_string(rates.num) + "By" + std::to_string(rates.den) + "To" +
                                  std::to_string(rates.hostNum) + "By" + std::to_string(rates.hostDen);
                         });

TEST(Rate, TellsOfNoNewFrameWhereTheSourceHasNone) {
  const std::string movie = AtRate("25", 60, "mp4");
  SKIP_WITHOUT(movie);
  const auto extractor = Open(InfileOf(movie), ParamsAtRate(50, 1));
  extractor->Start();
  for (int frame = 0; frame < 20; ++frame) {
    EXPECT_EQ(extractor->Advance(), frame % 2 == 0);
    EXPECT_NEAR(extractor->GetTime(), frame / 50.0, 1e-9);
  }
}

TEST(Rate, IsTwentyFiveWithoutANumber) {
  const std::string movie = AtRate("25", 60, "mp4");
  SKIP_WITHOUT(movie);
  EXPECT_THAT(NumbersOf(InfileOf(movie), 5, ParamsAtRate(0, 0)), ElementsAreArray(Counting(0, 5)));
}

/// A view that asks when it is time takes false for the end.
TEST(Rate, WithoutANumberTellsOfEveryFrameUntilTheEnd) {
  const std::string movie = AtRate("10/1", 10, "mp4");
  SKIP_WITHOUT(movie);
  const auto extractor = Play(InfileOf(movie), ParamsAtRate(0, 0));
  for (int frame = 1; frame < 25; ++frame) EXPECT_TRUE(extractor->Advance()) << frame;
  EXPECT_FALSE(extractor->Advance());
  EXPECT_EQ(NumberOf(*extractor), 9);
}

TEST(Rate, HalvesWithTheSpeed) {
  const std::string movie = AtRate("25", 60, "mp4");
  SKIP_WITHOUT(movie);
  const auto extractor = Play(InfileOf(movie));
  NumbersOf(*extractor, 4);
  extractor->SetSpeed(0.5);
  EXPECT_THAT(NumbersOf(*extractor, 6), testing::ElementsAre(5, 5, 6, 6, 7, 7));
  extractor->SetSpeed(2);
  EXPECT_THAT(NumbersOf(*extractor, 3), testing::ElementsAre(8, 10, 12));
}

TEST(Rate, MayVaryWithinAMovie) {
  const std::string movie =
      Movie("varied.mkv", NumberedFrames("25", 30) +
                              " -vf \"setpts='if(lt(N,10),N,if(lt(N,20),10+(N-10)*3,40+(N-20)*2))/25/TB'\" -vsync vfr" +
                              kFast);
  SKIP_WITHOUT(movie);
  std::vector<int> expected;
  for (int frame = 0; frame < 55; ++frame)
    expected.push_back(frame < 10 ? frame : frame < 40 ? 10 + (frame - 10) / 3 : 20 + (frame - 40) / 2);
  EXPECT_THAT(NumbersOf(InfileOf(movie), 55), ElementsAreArray(expected));
}

TEST(Rate, ShowsTheFirstPictureOfAStreamThatBeginsLate) {
  const std::string movie = Movie("late.mkv", "-f lavfi -i anullsrc=r=8000:cl=mono " + NumberedFrames("25", 20) +
                                                  " -t 2 -vf \"setpts=PTS+0.4/TB\" -vsync passthrough" + kFast +
                                                  " -c:a pcm_s16le -map 1:v -map 0:a");
  SKIP_WITHOUT(movie);
  std::vector<int> expected(10, 0);
  for (const int number : Counting(0, 20)) expected.push_back(number);
  for (int rest = 0; rest < 10; ++rest) expected.push_back(19);
  EXPECT_THAT(NumbersOf(InfileOf(movie, "duration=\"3\""), 40), ElementsAreArray(expected));
}

TEST(Rate, BeginsWithTheFirstFrameThatTheHostAsksFor) {
  const std::string movie = AtRate("25", 60, "mp4");
  SKIP_WITHOUT(movie);
  const auto extractor = Open(InfileOf(movie), Params(), 12);
  extractor->Start();
  EXPECT_THAT(NumbersOf(*extractor, 3), testing::ElementsAre(12, 13, 14));
}
