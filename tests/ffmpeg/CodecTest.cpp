#include "tests/ffmpeg/Sequence.h"

using testing::ElementsAreArray;

namespace {

constexpr int kCount = 30;

struct CKind {
  const char* name;
  const char* file;
  const char* encoding;
};

const CKind kKinds[] = {
    {"H264", "h264.mp4", "-c:v libx264 -preset ultrafast -pix_fmt yuv420p"},
    {"H264WithBFrames", "h264b.mp4", "-c:v libx264 -preset veryfast -bf 3 -pix_fmt yuv420p"},
    {"H264WithoutTimeStamps", "raw.h264", "-c:v libx264 -preset veryfast -bf 2 -pix_fmt yuv420p -f h264"},
    {"H264InTransportStream", "h264.ts", "-c:v libx264 -preset ultrafast -pix_fmt yuv420p -f mpegts"},
    {"HEVC", "hevc.mp4", "-c:v libx265 -preset ultrafast -x265-params log-level=none -pix_fmt yuv420p"},
    {"MPEG2ProgramStream", "mpeg2.mpg", "-c:v mpeg2video -b:v 2M -bf 2 -f vob"},
    {"MPEG2WithoutTimeStamps", "mpeg2.m2v", "-c:v mpeg2video -b:v 2M -f mpeg2video"},
    {"VP9", "vp9.webm", "-c:v libvpx-vp9 -deadline realtime -cpu-used 8 -b:v 1M"},
    {"AV1", "av1.mkv", "-c:v libaom-av1 -cpu-used 8 -usage realtime -b:v 1M"},
    {"MPEG4InAVI", "mpeg4.avi", "-c:v mpeg4 -q:v 3"},
    {"GIF", "gif.gif", "-f gif"},
    {"APNG", "apng.png", "-f apng -plays 0"},
    {"LosslessMatroska", "ffv1.mkv", "-c:v ffv1"},
    {"MotionJPEG", "mjpeg.mov", "-c:v mjpeg -q:v 2 -pix_fmt yuvj420p"},
    {"PNGsBehindOneAnother", "pngs.bin", "-c:v png -f image2pipe"},
};

class Codec : public testing::TestWithParam<CKind> {
protected:
  static std::string Made() { return Movie(GetParam().file, NumberedFrames("25", kCount) + " " + GetParam().encoding); }
};

}  // namespace

TEST_P(Codec, ShowsEachFrameOnceAndInOrder) {
  const std::string movie = Made();
  SKIP_WITHOUT(movie);
  EXPECT_THAT(NumbersOf(InfileOf(movie), kCount), ElementsAreArray(Counting(0, kCount)));
}

TEST_P(Codec, SeeksToTheFrame) {
  const std::string movie = Made();
  SKIP_WITHOUT(movie);
  const auto extractor = Play(InfileOf(movie));
  for (const int frame : {20, 3, 29, 0, 14, 15, 1}) {
    extractor->Seek(frame / 25.0, 1);
    ASSERT_THAT(NumbersOf(*extractor, 1), ElementsAreArray({frame}));
  }
}

TEST_P(Codec, EndsBehindTheLastFrame) {
  const std::string movie = Made();
  SKIP_WITHOUT(movie);
  const auto extractor = Play(InfileOf(movie));
  NumbersOf(*extractor, kCount + 5);
  EXPECT_FALSE(extractor->Advance());
  EXPECT_EQ(NumberOf(*extractor), kCount - 1);
  EXPECT_LE(extractor->GetTime(), (kCount + 1) / 25.0);
}

INSTANTIATE_TEST_SUITE_P(Kinds, Codec, testing::ValuesIn(kKinds),
                         [](const auto& kind) { return std::string(kind.param.name); });

TEST(Codec, PlaysTheFirstPictureOfAnAnimatedWebPAtLeast) {
  const std::string movie = Movie("webp.webp", NumberedFrames("25", 5) + " -c:v libwebp_anim -lossless 1 -loop 0");
  SKIP_WITHOUT(movie);
  const auto extractor = Open(InfileOf(movie));
  if (!extractor) {
    EXPECT_NE(LastCode(), 0);
    GTEST_SKIP() << "FFmpeg of this machine doesn't read animated WebP: " << LastText();
  }
  extractor->Start();
  EXPECT_TRUE(extractor->Advance());
  EXPECT_EQ(NumberOf(*extractor), 0);
}

TEST(Codec, SeeksExactlyInALongGroupOfPictures) {
  const std::string movie = Movie("long.mp4", NumberedFrames("25", 250) +
                                                  " -c:v libx264 -preset veryfast -bf 3 -g 240 -keyint_min 240 "
                                                  "-sc_threshold 0 -pix_fmt yuv420p");
  SKIP_WITHOUT(movie);
  const auto extractor = Play(InfileOf(movie));
  for (const int frame : {200, 199, 249, 100, 101, 7, 241, 239, 240, 0}) {
    extractor->Seek(frame / 25.0, 1);
    ASSERT_THAT(NumbersOf(*extractor, 2), testing::ElementsAre(frame, std::min(frame + 1, 249)));
  }
}

TEST(Codec, SeeksExactlyInOpenGroupsOfPictures) {
  const std::string movie = Movie("open.mkv", NumberedFrames("25", 100) +
                                                  " -c:v libx265 -preset ultrafast -pix_fmt yuv420p -x265-params "
                                                  "log-level=none:open-gop=1:keyint=20:min-keyint=20:bframes=3");
  SKIP_WITHOUT(movie);
  const auto extractor = Play(InfileOf(movie));
  for (int frame = 99; frame >= 0; frame -= 7) {
    extractor->Seek(frame / 25.0, 1);
    ASSERT_THAT(NumbersOf(*extractor, 1), ElementsAreArray({frame}));
  }
}
