#include "tests/ffmpeg/Memory.h"
#include "tests/ffmpeg/Sequence.h"

using namespace vantra;

namespace {

/// Quarters: red, green / blue, white. Of 160 x 80 pixels.
std::string Quarters() {
  return "-f lavfi -i \"color=c=0xff0000:s=160x80,format=gbrp,drawbox=80:0:80:40:0x00ff00:fill,"
         "drawbox=0:40:80:40:0x0000ff:fill,drawbox=80:40:80:40:white:fill\"";
}

std::string QuartersPicture() {
  return Movie("quarters.png", Quarters() + " -frames:v 1");
}

constexpr CColour kRed{255, 0, 0, 255};
constexpr CColour kGreen{0, 255, 0, 255};
constexpr CColour kBlue{0, 0, 255, 255};
constexpr CColour kWhite{255, 255, 255, 255};

/// Of the corners, row by row.
void ExpectCorners(IAnimationExtractor& extractor, const CColour& a, const CColour& b, const CColour& c,
                   const CColour& d, int tolerance = 6) {
  const int right = extractor.GetWidth() - 6;
  const int lower = extractor.GetHeight() - 6;
  EXPECT_PRED3(IsNear, PixelAt(extractor, 5, 5), a, tolerance);
  EXPECT_PRED3(IsNear, PixelAt(extractor, right, 5), b, tolerance);
  EXPECT_PRED3(IsNear, PixelAt(extractor, 5, lower), c, tolerance);
  EXPECT_PRED3(IsNear, PixelAt(extractor, right, lower), d, tolerance);
}

void ExpectSize(IAnimationExtractor& extractor, int width, int height) {
  EXPECT_EQ(extractor.GetWidth(), width);
  EXPECT_EQ(extractor.GetHeight(), height);
}

}  // namespace

TEST(Picture, StandsStillForEver) {
  const auto extractor = Play(InfileOf(QuartersPicture()));
  ExpectSize(*extractor, 160, 80);
  ExpectCorners(*extractor, kRed, kGreen, kBlue, kWhite, 0);
  for (int frame = 0; frame < 100; ++frame) EXPECT_FALSE(extractor->Advance());
  EXPECT_NEAR(extractor->GetTime(), 4, 1e-9);
}

TEST(Picture, OfAJPEGIsInFullRange) {
  const std::string picture = Movie("quarters.jpg", Quarters() + " -frames:v 1 -q:v 1 -pix_fmt yuvj444p");
  ExpectCorners(*Play(InfileOf(picture)), kRed, kGreen, kBlue, kWhite);
}

TEST(Picture, IsScaledIntoTheBox) {
  const std::string infile = InfileOf(QuartersPicture());
  ExpectSize(*Play(infile, Params(80, 0)), 80, 40);
  ExpectSize(*Play(infile, Params(0, 20)), 40, 20);
  ExpectSize(*Play(infile, Params(100, 100)), 100, 50);
  ExpectSize(*Play(infile, Params(400, 60)), 120, 60);
  CExtractorParams params = Params(320, 0);
  params.maxWidth = 64;
  ExpectSize(*Play(infile, params), 64, 32);
  ExpectCorners(*Play(infile, params), kRed, kGreen, kBlue, kWhite);
  ExpectCorners(*Play(infile, Params(333, 0)), kRed, kGreen, kBlue, kWhite);
}

TEST(Picture, IsClipped) {
  const auto extractor =
      Play(InfileOf(QuartersPicture(), "", "<clippingrect x=\"81\" y=\"1\" width=\"79\" height=\"61\"/>"));
  ExpectSize(*extractor, 79, 61);
  ExpectCorners(*extractor, kGreen, kGreen, kWhite, kWhite, 0);
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 3, 38), kGreen, 0);
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 3, 39), kWhite, 0);
}

TEST(Picture, IsClippedToThePixelInSubsampledColours) {
  const std::string movie = Movie("quarters.mp4", Quarters() + " -frames:v 3 -c:v libx264 -qp 4 -pix_fmt yuv420p");
  SKIP_WITHOUT(movie);
  for (const int shift : {0, 1}) {
    const auto extractor = Play(InfileOf(
        movie, "", "<clippingrect x=\"" + std::to_string(40 + shift) + "\" y=\"0\" width=\"80\" height=\"80\"/>"));
    EXPECT_PRED3(IsNear, PixelAt(*extractor, 40 - shift - 3, 10), kRed, 12);
    EXPECT_PRED3(IsNear, PixelAt(*extractor, 40 - shift + 2, 10), kGreen, 12);
  }
}

TEST(Picture, IsNotShiftedByShrinking) {
  const std::string movie = Movie("quarters.mp4", Quarters() + " -frames:v 3 -c:v libx264 -qp 4 -pix_fmt yuv420p");
  SKIP_WITHOUT(movie);
  for (const int width : {80, 54, 40, 32, 26, 20, 16}) {
    const auto extractor = Play(InfileOf(movie), Params(width));
    const int height = extractor->GetHeight();
    const CColour kNear[] = {kRed, kGreen, kBlue, kWhite};
    for (int corner = 0; corner < 4; ++corner) {
      const int x = corner % 2 == 0 ? width / 2 - 3 : width / 2 + 2;
      const int y = corner < 2 ? height / 2 - 3 : height / 2 + 2;
      EXPECT_PRED3(IsNear, PixelAt(*extractor, x, y), kNear[corner], 12) << width;
    }
  }
}

TEST(Picture, OutsideOfWhichTheClippingRectangleLiesIsRefused) {
  EXPECT_FALSE(Open(InfileOf(QuartersPicture(), "", "<clippingrect x=\"500\" y=\"0\" width=\"10\" height=\"10\"/>")));
  EXPECT_NE(LastText().find("clipping rectangle"), std::string::npos);
}

TEST(Picture, IsMirrored) {
  ExpectCorners(*Play(InfileOf(QuartersPicture(), "mirrorhorizontal=\"1\"")), kGreen, kRed, kWhite, kBlue, 0);
  ExpectCorners(*Play(InfileOf(QuartersPicture(), "mirrorvertical=\"1\"")), kBlue, kWhite, kRed, kGreen, 0);
  ExpectCorners(*Play(InfileOf(QuartersPicture(), "mirrorvertical=\"1\" mirrorhorizontal=\"1\"")), kWhite, kBlue,
                kGreen, kRed, 0);
}

TEST(Picture, IsTurnedClockwise) {
  const auto quarter = Play(InfileOf(QuartersPicture(), "rotation=\"90\""));
  ExpectSize(*quarter, 80, 160);
  ExpectCorners(*quarter, kBlue, kRed, kWhite, kGreen, 0);
  ExpectCorners(*Play(InfileOf(QuartersPicture(), "rotation=\"180\"")), kWhite, kBlue, kGreen, kRed, 0);
  ExpectCorners(*Play(InfileOf(QuartersPicture(), "rotation=\"-90\"")), kGreen, kWhite, kRed, kBlue, 0);
  ExpectCorners(*Play(InfileOf(QuartersPicture(), "rotation=\"450\" mirrorhorizontal=\"1\"")), kWhite, kGreen, kBlue,
                kRed, 0);
}

TEST(Picture, IsTurnedByAnyAngleInTheBoxAroundIt) {
  const auto extractor = Play(InfileOf(QuartersPicture(), "rotation=\"30\""));
  ExpectSize(*extractor, 179, 149);
  EXPECT_EQ(PixelAt(*extractor, 2, 2).alpha, 0);
  EXPECT_EQ(PixelAt(*extractor, 176, 146).alpha, 0);
  // The centres of the quarters, 40 and 20 from the middle, come to lie 30 degrees further.
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 89 - 25, 74 - 37), kRed, 2);
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 89 + 45, 74 + 3), kGreen, 2);
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 89 - 45, 74 - 3), kBlue, 2);
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 89 + 25, 74 + 37), kWhite, 2);
}

TEST(Picture, ThatIsTurnedAndStretchedTakesNoMoreThanCanBeSeen) {
  const long before = MostMemory();
  const std::string infile =
      Infile(Track(Video(QuartersPicture(), "rotation=\"45\""), "x=\"0\" width=\"16000\" height=\"2\""));
  const auto extractor = Play(infile);
  ExpectSize(*extractor, 16000, 2);
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 5333, 0), kRed, 40);
  EXPECT_LT(MostMemory() - before, 100'000) << "KB";
}

TEST(Picture, LiesAsItsFileSays) {
  const std::string movie = Movie("plain.mp4", Quarters() + " -frames:v 3 -c:v libx264 -qp 4 -pix_fmt yuv444p");
  SKIP_WITHOUT(movie);
  // The command counts counterclockwise.
  const std::string turned =
      MadeBy("turned.mp4", "$ffmpeg -i '" + movie + "' -c copy -metadata:s:v:0 rotate=270 -f mp4 \"$out\"");
  SKIP_WITHOUT(turned);
  const auto extractor = Play(InfileOf(turned));
  ExpectSize(*extractor, 80, 160);
  ExpectCorners(*extractor, kBlue, kRed, kWhite, kGreen, 12);
  const auto clipped = Play(InfileOf(turned, "", "<clippingrect x=\"40\" y=\"0\" width=\"40\" height=\"80\"/>"));
  ExpectSize(*clipped, 40, 80);
  ExpectCorners(*clipped, kRed, kRed, kRed, kRed, 12);
}

TEST(Picture, OfPixelsThatAreNotSquareIsStretched) {
  const std::string movie =
      Movie("wide.mp4", Quarters() + " -vf setsar=3/2 -frames:v 3 -c:v libx264 -qp 4 -pix_fmt yuv420p");
  SKIP_WITHOUT(movie);
  ExpectSize(*Play(InfileOf(movie)), 240, 80);
  ExpectSize(*Play(InfileOf(movie, "rotation=\"90\"")), 80, 240);
  const auto clipped = Play(InfileOf(movie, "", "<clippingrect x=\"0\" y=\"0\" width=\"80\" height=\"80\"/>"));
  ExpectSize(*clipped, 120, 80);
  ExpectCorners(*clipped, kRed, kRed, kBlue, kBlue, 12);
}

TEST(Picture, HasTheColoursOfItsMatrixAndRange) {
  struct CCase {
    const char* name;
    const char* matrix;
    const char* range;
    const char* size;
  };
  // The last two don't say what they are: small ones are as television was, large ones as it is.
  for (const CCase& one : {CCase{"601l.mkv", "bt601", "limited", "160x80"},
                           {"601f.mkv", "bt601", "full", "160x80"},
                           {"709l.mkv", "bt709", "limited", "160x80"},
                           {"709f.mkv", "bt709", "full", "160x80"},
                           {"small.y4m", "bt601", "limited", "160x80"},
                           {"large.y4m", "bt709", "limited", "1280x720"}}) {
    const std::string movie =
        Movie(one.name, "-f lavfi -i \"color=c=0xc86432:s=" + std::string(one.size) +
                            ",format=gbrp,scale=out_color_matrix=" + one.matrix + ":out_range=" + one.range +
                            ":flags=accurate_rnd+full_chroma_int,format=yuv444p\" -frames:v 2" +
                            (std::string(one.name).ends_with("mkv")
                                 ? " -c:v ffv1 -color_range " + std::string(*one.range == 'f' ? "pc" : "tv") +
                                       " -colorspace " + (std::string(one.matrix) == "bt601" ? "smpte170m" : "bt709")
                                 : ""));
    SKIP_WITHOUT(movie);
    EXPECT_PRED3(IsNear, PixelAt(*Play(InfileOf(movie, "", ""), Params(40)), 20, 10), (CColour{200, 100, 50, 255}), 2)
        << one.name;
  }
}

TEST(Picture, IsPremultiplied) {
  const std::string picture =
      Movie("translucent.png", "-f lavfi -i \"color=c=0xff8000@0.5:s=64x64,format=rgba\" -frames:v 1");
  EXPECT_PRED3(IsNear, PixelAt(*Play(InfileOf(picture)), 30, 30), (CColour{128, 64, 0, 128}), 1);
  EXPECT_PRED3(IsNear, PixelAt(*Play(InfileOf(picture), Params(20)), 10, 10), (CColour{128, 64, 0, 128}), 3);
}

TEST(Picture, BleedsNoColourOutOfWhatIsTransparent) {
  const std::string picture = Movie("hole.png",
                                    "-f lavfi -i \"color=c=0x00ff00@0.0:s=64x64,format=rgba\" -f lavfi -i "
                                    "\"color=c=0xff0000:s=32x64,format=rgba\" -filter_complex "
                                    "\"[0][1]hstack,format=rgba\" -frames:v 1");
  SKIP_WITHOUT(picture);
  const auto extractor = Play(InfileOf(picture), Params(24));
  for (int x = 0; x < extractor->GetWidth(); ++x) EXPECT_LE(PixelAt(*extractor, x, 5).green, 4) << x;
}

TEST(Picture, KeepsItsPlaceWhenTheStreamChangesItsSize) {
  const std::string small =
      Movie("small.h264", NumberedFrames("25", 10) + " -c:v libx264 -preset ultrafast -pix_fmt yuv420p -f h264");
  const std::string large = Movie(
      "double.h264", NumberedFrames("25", 10) +
                         " -vf scale=320:192:flags=neighbor -c:v libx264 -preset ultrafast -pix_fmt yuv420p -f h264");
  SKIP_WITHOUT(large);
  const std::string both = Written("both.h264", BytesOf(small) + BytesOf(large));
  std::vector<int> expected = Counting(0, 10);
  for (const int number : Counting(0, 10)) expected.push_back(number);
  EXPECT_EQ(NumbersOf(InfileOf(both), 20), expected);
  ExpectSize(*Play(InfileOf(both)), 160, 96);
}
