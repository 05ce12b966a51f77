#include "tests/ffmpeg/Sequence.h"

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

using namespace vantra;
using testing::HasSubstr;

namespace {

std::string Numbers() {
  return Movie("numbers.mkv", NumberedFrames("25", 50) + " -c:v libx264 -preset ultrafast -pix_fmt yuv420p");
}

void ExpectRefused(const std::string& infile, const std::string& text) {
  const auto extractor = Open(infile);
  EXPECT_FALSE(extractor) << infile.substr(0, 200);
  ASSERT_TRUE(LastError());
  EXPECT_NE(LastCode(), 0);
  EXPECT_THAT(LastText(), HasSubstr(text));
}

}  // namespace

TEST(Hostile, InfilesAreRefused) {
  ExpectRefused("", "Not an infile");
  ExpectRefused("<infile", "Not an infile");
  ExpectRefused("<other/>", "Not an infile");
  ExpectRefused("<infile/>", "shows nothing");
  ExpectRefused("<infile><what/></infile>", "invalid element found in infile node");
  ExpectRefused(Infile(Track("<what/>")), "unknown track item type");
  ExpectRefused(Infile(Track("<video/>")), "no location");
  ExpectRefused(Infile(Track("<loop/>")), "shows nothing");
}

TEST(Hostile, NumbersDoNoHarm) {
  for (const char* number : {"nan", "inf", "-inf", "1e308", "-1e308", "1e-308", "-1"}) {
    const std::string value = number;
    for (const char* name : {"duration", "x", "y", "width", "height", "start"}) {
      const auto extractor =
          Open(Infile(Track(Video(Numbers()), std::string(name) + "=\"" + value + "\""), "duration=\"" + value + "\""));
      if (!extractor) continue;
      extractor->Start();
      NumbersOf(*extractor, 2);
    }
    for (const char* name : {"duration", "starttime", "rotation"}) {
      const auto extractor = Open(InfileOf(Numbers(), std::string(name) + "=\"" + value + "\""));
      ASSERT_TRUE(extractor) << name << value;
      extractor->Start();
      extractor->Seek(std::strtod(number, nullptr), 1);
      extractor->SetSpeed(std::strtod(number, nullptr));
      NumbersOf(*extractor, 2);
    }
  }
}

TEST(Hostile, LocationsThatAreNotLocalAreRefused) {
  for (const char* src :
       {"http://127.0.0.1:1/a.mp4", "https://there/a.mp4", "ftp://there/a", "concat:/a|/b", "tcp://127.0.0.1:1",
        "crypto:/etc/passwd", "subfile,,start,0,end,9,,:/etc/passwd", "file://there/a.mp4", "data:video/mp4,abc",
        "pipe:0", "cache:http://there/a", "async:/a", "lavfi:testsrc"})
    EXPECT_FALSE(Open(Infile(Track("<video src=\"" + std::string(src) + "\"/>")))) << src;
  ExpectRefused(Infile(Track("<video src=\"http://127.0.0.1:1/a.mp4\"/>")), "Not a local file");
}

TEST(Hostile, FilesThatAreNoFilesAreRefused) {
  const std::string pipe = Written("pipe", "");
  std::filesystem::remove(pipe);
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  ExpectRefused(InfileOf(pipe), "Not a file");
  std::filesystem::remove(pipe);
  ExpectRefused(InfileOf("/dev/zero"), "Not a file");
  ExpectRefused(InfileOf("/tmp"), "Not a file");
  ExpectRefused(InfileOf("/nowhere/at/all.mp4"), "Can't open");
  EXPECT_EQ(LastCode(), 5);
  EXPECT_NE(LastError()->getAdditionalCode(), 0);
  EXPECT_THAT(LastError()->getWhat(), HasSubstr("No such file"));
}

TEST(Hostile, PlaylistsAndScriptsAreRefused) {
  const std::string movie = Numbers();
  const struct {
    const char* name;
    std::string text;
  } kFiles[] = {
      {"list.ffconcat", "ffconcat version 1.0\nfile '" + movie + "'\n"},
      {"list.m3u8",
       "#EXTM3U\n#EXT-X-VERSION:3\n#EXT-X-TARGETDURATION:9\n#EXTINF:2.0,\n" + movie + "\n#EXT-X-ENDLIST\n"},
      {"remote.m3u8", "#EXTM3U\n#EXT-X-TARGETDURATION:9\n#EXTINF:2.0,\nhttp://127.0.0.1:1/a.ts\n#EXT-X-ENDLIST\n"},
      {"list.mpd",
       "<?xml version=\"1.0\"?><MPD xmlns=\"urn:mpeg:dash:schema:mpd:2011\" type=\"static\" "
       "mediaPresentationDuration=\"PT2S\"><Period><AdaptationSet contentType=\"video\"><Representation id=\"1\" "
       "bandwidth=\"1\"><BaseURL>" +
           movie + "</BaseURL></Representation></AdaptationSet></Period></MPD>"},
      {"list.sdp",
       "v=0\no=- 0 0 IN IP4 127.0.0.1\nc=IN IP4 127.0.0.1\nt=0 0\nm=video 5004 RTP/AVP 96\na=rtpmap:96 H264/90000\n"},
      {"words.txt", "Nothing but words.\n"},
      {"empty.mp4", ""},
      {"sound.wav", ""},
  };
  for (const auto& file : kFiles) ExpectRefused(InfileOf(Written(file.name, file.text)), "Not a movie");
  const std::string sound = Movie("only-sound.mkv", "-f lavfi -i anullsrc=r=8000:cl=mono -t 1 -c:a pcm_s16le");
  ExpectRefused(InfileOf(sound), "Not a movie");
}

TEST(Hostile, PatternsOfNamesAreNoFiles) {
  Movie("sequence-001.png", "-f lavfi -i color=s=16x16 -frames:v 1");
  std::string pattern = Written("sequence-000.txt", "");
  pattern.replace(pattern.find("000.txt"), 7, "%25003d.png");
  ExpectRefused(InfileOf(pattern), "Can't open");
}

TEST(Hostile, KindsThatAreUnknownGiveNothingAndAnError) {
  EXPECT_FALSE(Plugin().createContext(nullptr, 7));
  EXPECT_EQ(LastCode(), 1);
  EXPECT_FALSE(Plugin().createMessage(2));
  EXPECT_EQ(LastCode(), 1);
  const orlo::P<IMessage> message = Plugin().createMessage(1);
  EXPECT_TRUE(message);
  EXPECT_EQ(LastCode(), 0);
  EXPECT_FALSE(Plugin().getAnimationExtractor(nullptr, nullptr, 0, 0, 0));
  EXPECT_NE(LastCode(), 0);
}

TEST(Hostile, SizesBeyondTheLimitsAreRefused) {
  ExpectRefused(Infile(Track(Video(Numbers()), "x=\"0\" y=\"0\" width=\"1e6\" height=\"1e6\"")), "16384 pixels");
  const std::string huge = Movie("huge.png", "-f lavfi -i color=s=16400x4 -frames:v 1 -pix_fmt gray");
  SKIP_WITHOUT(huge);
  ExpectRefused(InfileOf(huge), "16384 pixels");
}

TEST(Hostile, ListsDeepWithinListsOpenAtOnce) {
  std::string item = Video(Numbers());
  for (int depth = 0; depth < 30; ++depth)
    item = "<videotracklist>" + Track(item, "x=\"1\" y=\"1\" width=\"100\" height=\"50\"") + "</videotracklist>";
  const auto extractor = Play(Infile(Track(item, "x=\"1\" width=\"160\" height=\"96\"")));
  EXPECT_EQ(extractor->GetWidth(), 161);
  EXPECT_EQ(extractor->GetHeight(), 96);
}

TEST(Hostile, TruncatedMoviesPlayAsFarAsTheyGo) {
  const std::string movie = Numbers();
  SKIP_WITHOUT(movie);
  const std::string bytes = BytesOf(movie);
  const auto extractor = Play(InfileOf(Written("half.mkv", bytes.substr(0, bytes.size() / 2)), "duration=\"2\""));
  const std::vector<int> numbers = NumbersOf(*extractor, 49);
  EXPECT_EQ(numbers.front(), 1);
  EXPECT_GT(numbers.back(), 5);
  EXPECT_LT(numbers.back(), 45);
  for (std::size_t length = 0; length < 1500; length += 100) {
    const auto cut = Open(InfileOf(Written("cut.mkv", bytes.substr(0, length))));
    if (!cut) continue;
    cut->Start();
    NumbersOf(*cut, 3);
  }
}

/// With MFILTER_MUTATIONS in the environment as many as it says.
TEST(Hostile, MutatedMoviesDoNoHarm) {
  const char* const wanted = std::getenv("MFILTER_MUTATIONS");
  const int rounds = wanted ? std::atoi(wanted) : 4;
  std::mt19937 random(wanted ? std::random_device()() : 1);
  const std::pair<std::string, std::string> kinds[] = {
      {"h264.mp4", ""},
      {"hevc.mp4", "-c:v libx265 -preset ultrafast -x265-params log-level=none"},
      {"av1.mkv", "-c:v libaom-av1 -cpu-used 8 -usage realtime -b:v 1M"},
      {"vp9.webm", ""},
      {"mpeg2.mpg", "-c:v mpeg2video -b:v 2M -bf 2 -f vob"},
      {"h264.ts", ""},
      {"mjpeg.mov", ""},
      {"mpeg4.avi", ""},
      {"flv.flv", ""},
      {"raw.h264", ""},
      {"gif.gif", ""},
      {"apng.png", "-f apng"},
      {"still.webp", "-frames:v 1"},
      {"still.jpg", "-frames:v 1"}};
  for (const auto& [name, encoding] : kinds) {
    const std::string movie = Movie("mutant-" + name, NumberedFrames("25", 10) + " " + encoding);
    ASSERT_FALSE(movie.empty()) << name;
    const std::string bytes = BytesOf(movie);
    for (int round = 0; round < rounds; ++round) {
      std::string mutated = bytes;
      const int changes = 1 + static_cast<int>(random() % 20);
      for (int change = 0; change < changes; ++change) {
        // Headers stand at either end.
        const std::size_t range = random() % 3 == 0 ? mutated.size() : std::min<std::size_t>(mutated.size(), 1000);
        const std::size_t at = random() % 2 == 0 ? random() % range : mutated.size() - 1 - random() % range;
        mutated[at] = static_cast<char>(random());
      }
      const std::string file = Written("mutated-" + std::to_string(getpid()) + "-" + name, mutated);
      if (const auto extractor = Open(InfileOf(file), Params(64))) {
        extractor->Start();
        NumbersOf(*extractor, 12);
        extractor->Seek(0.2, 1);
        NumbersOf(*extractor, 2);
      }
      std::filesystem::remove(file);
    }
  }
}

TEST(Hostile, ClosingFromAnotherThreadEndsPlaying) {
  const auto extractor = Play(Infile(Track("<loop>" + Video(Numbers()) + "</loop>")));
  std::thread closing([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    extractor->Close();
  });
  while (extractor->Advance()) {
  }
  closing.join();
  EXPECT_FALSE(extractor->Advance());
  // The last picture stays.
  EXPECT_NE(PixelAt(*extractor, 0, 0).alpha, -1);
}

/// Loops of three frames: readers come and go all the time.
TEST(Hostile, ClosingAtAnyMomentEndsPlaying) {
  const std::string loop = "<loop>" + Video(Numbers(), "duration=\"0.12\"") + "</loop>";
  const std::string infile = Infile(Track(loop) + Track(loop, "x=\"10\" width=\"50\"") +
                                    Track("<loop>" + Video(Numbers(), "duration=\"0.2\"") + "</loop>", "x=\"80\""));
  for (int frames = 0; frames < 40; frames += 3) {
    const auto extractor = Open(infile, Params(64));
    ASSERT_TRUE(extractor);
    extractor->Start();
    std::atomic<int> advanced{0};
    std::thread closing([&] {
      while (advanced < frames) std::this_thread::yield();
      extractor->Close();
    });
    while (extractor->Advance()) ++advanced;
    // A frame without another picture is no end.
    while (advanced < frames) {
      extractor->Advance();
      ++advanced;
    }
    closing.join();
    EXPECT_FALSE(extractor->Advance());
  }
}

TEST(Hostile, ClosingTwiceAndBeforeTheStartDoesNoHarm) {
  const auto extractor = Open(InfileOf(Numbers()));
  extractor->Close();
  extractor->Close();
  extractor->Start();
  EXPECT_FALSE(extractor->Advance());
  EXPECT_EQ(PixelAt(*extractor, 0, 0).alpha, -1);
  extractor->SetMessageTarget(nullptr);
}

TEST(Hostile, NothingIsShownBeforeTheStart) {
  const auto extractor = Open(InfileOf(Numbers()));
  EXPECT_FALSE(extractor->Advance());
  EXPECT_EQ(PixelAt(*extractor, 0, 0).alpha, -1);
}
