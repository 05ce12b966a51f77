#include "foundation/Cast.h"
#include "graphics/animation/GIFAnimation.h"
#include "tests/animation/GIFWriter.h"
#include "tests/animation/LiteralComposition.h"

#include <gtest/gtest.h>
#include <wx/ffile.h>
#include <wx/filename.h>

#include <cstdlib>
#include <random>

namespace graphics::animation::test {

namespace {

using CBytes = std::vector<unsigned char>;

// Index 0 is the background unless a test says otherwise.
const std::vector<CGIFWriter::CColour> kPalette = {{10, 20, 30}, {255, 0, 0}, {0, 255, 0}, {0, 0, 255}};
constexpr CPixel kGround{10, 20, 30, 255};
constexpr CPixel kGreen{0, 255, 0, 255};

/// A file of these bytes for as long as it is in scope.
class CFile {
public:
  explicit CFile(const CBytes& bytes) : path_(wxFileName::CreateTempFileName("mfilter-gif")) {
    wxFFile(path_, "wb").Write(bytes.data(), bytes.size());
  }
  CFile(const CFile&) = delete;
  CFile& operator=(const CFile&) = delete;
  ~CFile() { wxRemoveFile(path_); }

  const wxString& Path() const { return path_; }

private:
  wxString path_;
};

class GIFAnimation : public testing::Test {
protected:
  static orlo::P<CGIFAnimation> Load(const CBytes& bytes) {
    const CFile file(bytes);
    const auto animation = orlo::makeObject<CGIFAnimation>();
    EXPECT_TRUE(animation->LoadFile(file.Path())) << animation->GetLoadError();
    return animation;
  }
  static wxString ErrorOf(const CBytes& bytes) {
    const CFile file(bytes);
    CGIFAnimation animation;
    EXPECT_FALSE(animation.LoadFile(file.Path()));
    EXPECT_TRUE(animation.IsEmpty());
    EXPECT_EQ(animation.GetWidth(), -1);
    return animation.GetLoadError();
  }
  static CPixel At(const IAnimation& animation, int x, int y) { return PixelOf(*animation.GetCurrentFrame(), x, y); }
  static void ExpectLiteral(const CBytes& bytes) {
    const auto expected = ComposedFromNothing(bytes);
    ASSERT_FALSE(expected.empty());
    EXPECT_EQ(PicturesOf(*Load(bytes)), expected);
  }

private:
  const CToolkitLock lock_;
};

}  // namespace

TEST_F(GIFAnimation, HasTheSizeOfTheScreenAndADelayForEachFrame) {
  const auto gif = Load(CGIFWriter(30, 20, kPalette)
                            .Control(1, 10)
                            .Fill(0, 0, 5, 5, 1)
                            .Control(1, 0)
                            .Fill(0, 0, 5, 5, 2)
                            .Control(1, 65535)
                            .Fill(0, 0, 5, 5, 3)
                            .Fill(0, 0, 5, 5, 3)
                            .End());
  EXPECT_EQ(gif->GetWidth(), 30);
  EXPECT_EQ(gif->GetHeight(), 20);
  for (const std::int32_t delay : {100, 0, 655350, -1}) {
    EXPECT_EQ(gif->GetDelay(), delay);
    gif->Next();
  }
}

TEST_F(GIFAnimation, StandsOnTheBackgroundColour) {
  const auto gif = Load(CGIFWriter(10, 10, kPalette).Control(1, 5).Fill(2, 3, 4, 4, 1).End());
  EXPECT_EQ(At(*gif, 0, 0), kGround);
  EXPECT_EQ(At(*gif, 2, 3), kRed);
  EXPECT_EQ(At(*gif, 5, 6), kRed);
  EXPECT_EQ(At(*gif, 6, 6), kGround);
}

TEST_F(GIFAnimation, StandsOnBlackIfTheFileHasNoColours) {
  CGIFWriter writer(4, 4);
  writer.Image({0, 0, 2, 2, {1, 1, 1, 1}, false, kPalette});
  const auto gif = Load(writer.End());
  EXPECT_EQ(At(*gif, 0, 0), kRed);
  EXPECT_EQ(At(*gif, 3, 3), kBlack);
}

TEST_F(GIFAnimation, KeepsWhatFramesLeaveBehind) {
  for (const int disposal : {0, 1}) {
    const auto gif = Load(
        CGIFWriter(10, 10, kPalette).Control(disposal, 5).Fill(0, 0, 4, 4, 1).Control(1, 5).Fill(6, 6, 2, 2, 2).End());
    gif->Next();
    EXPECT_EQ(At(*gif, 0, 0), kRed);
    EXPECT_EQ(At(*gif, 6, 6), kGreen);
  }
}

TEST_F(GIFAnimation, FillsTheFramesPlaceWithTheBackground) {
  const auto gif = Load(CGIFWriter(10, 10, kPalette)
                            .Control(1, 5)
                            .Fill(0, 0, 10, 10, 1)
                            .Control(2, 5)
                            .Fill(2, 2, 4, 4, 2)
                            .Control(1, 5)
                            .Fill(9, 9, 1, 1, 3)
                            .End());
  gif->Next();
  EXPECT_EQ(At(*gif, 2, 2), kGreen);
  gif->Next();
  EXPECT_EQ(At(*gif, 1, 1), kRed);
  EXPECT_EQ(At(*gif, 2, 2), kGround);
  EXPECT_EQ(At(*gif, 5, 5), kGround);
  EXPECT_EQ(At(*gif, 6, 6), kRed);
}

// The file's number 3, which the toolkit calls 2.
TEST_F(GIFAnimation, LeavesNoTraceOfAFrameThatGoesBackToThePrevious) {
  const auto gif = Load(CGIFWriter(10, 10, kPalette)
                            .Control(1, 5)
                            .Fill(0, 0, 10, 10, 1)
                            .Control(3, 5)
                            .Fill(2, 2, 4, 4, 2)
                            .Control(1, 5)
                            .Fill(9, 9, 1, 1, 3)
                            .End());
  const CPicture first = Unpacked(gif->GetCurrentFrame());
  gif->Next();
  EXPECT_EQ(At(*gif, 2, 2), kGreen);
  gif->Next();
  EXPECT_EQ(At(*gif, 2, 2), kRed);
  EXPECT_EQ(At(*gif, 9, 9), kBlue);
  gif->Rewind();
  EXPECT_EQ(Unpacked(gif->GetCurrentFrame()), first);
}

TEST_F(GIFAnimation, ShowsWhatLiesBelowATransparentPixel) {
  CGIFWriter writer(4, 1, kPalette);
  writer.Control(1, 5).Fill(0, 0, 4, 1, 1);
  writer.Control(1, 5, 3).Image({0, 0, 4, 1, {3, 2, 3, 2}, false, {}});
  // What one frame says of transparency doesn't hold for the next.
  writer.Fill(0, 0, 1, 1, 3);
  const auto gif = Load(writer.End());
  gif->Next();
  EXPECT_EQ(At(*gif, 0, 0), kRed);
  EXPECT_EQ(At(*gif, 1, 0), kGreen);
  gif->Next();
  EXPECT_EQ(At(*gif, 0, 0), kBlue);
}

TEST_F(GIFAnimation, PutsInterlacedRowsInTheirPlaces) {
  for (const int height : {1, 2, 3, 7, 8, 9, 23}) {
    CGIFWriter::CImage image{0, 0, 3, height, {}, false, {}};
    for (int pixel = 0; pixel < 3 * height; ++pixel) image.pixels.push_back(pixel / 3 % 4);
    const auto plain = Load(CGIFWriter(3, height, kPalette).Image(image).End());
    image.interlaced = true;
    EXPECT_EQ(PicturesOf(*Load(CGIFWriter(3, height, kPalette).Image(image).End())), PicturesOf(*plain)) << height;
  }
}

TEST_F(GIFAnimation, TakesTheColoursOfAFrameBeforeThoseOfTheFile) {
  CGIFWriter writer(2, 1, kPalette);
  writer.Image({0, 0, 1, 1, {1}, false, {{9, 9, 9}, {1, 2, 3}}}).Fill(1, 0, 1, 1, 1);
  const auto gif = Load(writer.End());
  gif->Next();
  EXPECT_EQ(At(*gif, 0, 0), (CPixel{1, 2, 3, 255}));
  EXPECT_EQ(At(*gif, 1, 0), kRed);
}

TEST_F(GIFAnimation, DrawsNothingForAnIndexWithoutAColour) {
  const auto gif = Load(CGIFWriter(2, 1, kPalette).Image({0, 0, 2, 1, {200, 1}, false, {}}).End());
  EXPECT_EQ(At(*gif, 0, 0), kGround);
  EXPECT_EQ(At(*gif, 1, 0), kRed);
}

TEST_F(GIFAnimation, CutsFramesAtTheEdgesOfTheScreen) {
  const auto gif = Load(CGIFWriter(10, 10, kPalette)
                            .Control(2, 5)
                            .Fill(8, 8, 5, 5, 1)
                            .Control(2, 5)
                            .Fill(50, 60, 4, 4, 2)
                            .Control(1, 5)
                            .Fill(0, 0, 20, 30, 3)
                            .Fill(0, 5, 1, 1, 1)
                            .End());
  EXPECT_EQ(At(*gif, 9, 9), kRed);
  EXPECT_EQ(At(*gif, 7, 9), kGround);
  gif->Next();
  EXPECT_EQ(At(*gif, 9, 9), kGround);
  gif->Next();
  EXPECT_EQ(At(*gif, 9, 9), kBlue);
  gif->Next();
  EXPECT_EQ(At(*gif, 0, 5), kRed);
  EXPECT_EQ(At(*gif, 9, 4), kBlue);
}

TEST_F(GIFAnimation, WithoutAScreenIsAsLargeAsItsFirstFrame) {
  const auto gif = Load(CGIFWriter(0, 0, kPalette).Fill(1, 2, 4, 5, 1).End());
  EXPECT_EQ(gif->GetWidth(), 5);
  EXPECT_EQ(gif->GetHeight(), 7);
}

TEST_F(GIFAnimation, PassesOverOtherExtensionsAndPadding) {
  const auto gif = Load(CGIFWriter(2, 2, kPalette)
                            .Extension(0xFF, "NETSCAPE2.0")
                            .Control(1, 7)
                            .Extension(0xFE, "a comment")
                            .Byte(0)
                            .Fill(0, 0, 2, 2, 1)
                            .End());
  EXPECT_EQ(gif->GetDelay(), 70);
  EXPECT_EQ(At(*gif, 0, 0), kRed);
}

TEST_F(GIFAnimation, OfTheOlderVersionHasOneFrame) {
  const auto gif = Load(CGIFWriter(2, 2, kPalette, 0, "87a").Fill(0, 0, 2, 2, 1).Fill(0, 0, 2, 2, 2).End());
  EXPECT_FALSE(gif->Next());
}

TEST_F(GIFAnimation, IsTheSameAsComposedFromNothing) {
  CGIFWriter writer(20, 16, kPalette, 2);
  for (const int disposal : {0, 1, 2, 3, 1, 3, 2, 0, 3, 3, 2, 2, 1})
    writer.Control(disposal, 4, disposal % 2).Fill(disposal * 2, 3, 9, 10 - disposal, 1 + disposal % 3);
  ExpectLiteral(writer.End());
}

TEST_F(GIFAnimation, OfRandomFramesIsTheSameAsComposedFromNothing) {
  std::mt19937 random(42);
  const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
  for (int round = 0; round < 20; ++round) {
    std::vector<CGIFWriter::CColour> palette(static_cast<std::size_t>(2 + below(200)));
    const auto colours = static_cast<int>(palette.size());
    for (auto& colour : palette) colour = {below(250), 1 + below(250), below(250)};
    const int width = 1 + below(90), height = 1 + below(70);
    CGIFWriter writer(width, height, palette, below(colours));
    for (int frame = 0; frame < 12; ++frame) {
      CGIFWriter::CImage image;
      image.width = 1 + below(width);
      image.height = 1 + below(height);
      image.left = below(width);
      image.top = below(height);
      image.interlaced = below(2) != 0;
      const int noise = 1 + below(colours);
      for (int pixel = 0; pixel < image.width * image.height; ++pixel) image.pixels.push_back(below(noise));
      writer.Control(below(4), below(30), frame % 2 != 0 ? below(colours) : -1).Image(image);
    }
    ExpectLiteral(writer.End());
  }
}

TEST_F(GIFAnimation, OfLongDataUsesTheWholeAlphabet) {
  CGIFWriter::CImage image{0, 0, 300, 200, {}, false, {}};
  std::mt19937 random(7);
  for (int pixel = 0; pixel < 300 * 200; ++pixel) image.pixels.push_back(static_cast<int>(random() % 4));
  ExpectLiteral(CGIFWriter(300, 200, kPalette).Image(image).End());
}

// The toolkit's decoder refuses such files.
TEST_F(GIFAnimation, MayGoOnWithAFullAlphabet) {
  CGIFWriter::CImage image{0, 0, 300, 200, {}, false, {}};
  std::mt19937 random(7);
  for (int pixel = 0; pixel < 300 * 200; ++pixel) image.pixels.push_back(static_cast<int>(random() % 4));
  const CBytes clearing = CGIFWriter(300, 200, kPalette).Image(image).End();
  image.clearsFullAlphabet = false;
  const CBytes full = CGIFWriter(300, 200, kPalette).Image(image).End();
  EXPECT_NE(full, clearing);
  EXPECT_EQ(PicturesOf(*Load(full)), PicturesOf(*Load(clearing)));
}

TEST_F(GIFAnimation, MadeByAnotherProgramIsTheSameAsComposedFromNothing) {
  const CFile file({});
  const std::string path = std::string(file.Path().utf8_str());
  const std::string command =
      "ffmpeg -nostdin -v error -y -f lavfi -i testsrc=size=96x64:rate=10 -frames:v 15 -f gif '" + path + "'";
  ASSERT_EQ(std::system(command.c_str()), 0);
  CBytes bytes(static_cast<std::size_t>(wxFileName::GetSize(file.Path()).ToULong()));
  wxFFile(file.Path(), "rb").Read(bytes.data(), bytes.size());
  const auto gif = Load(bytes);
  EXPECT_EQ(gif->GetDelay(), 100);
  EXPECT_EQ(PicturesOf(*gif).size(), 15u);
  ExpectLiteral(bytes);
}

TEST_F(GIFAnimation, SharesPicturesThatAreTheSame) {
  const auto gif = Load(CGIFWriter(20, 20, kPalette)
                            .Control(1, 5)
                            .Fill(0, 0, 9, 9, 1)
                            .Control(1, 5, 1)
                            .Fill(0, 0, 20, 20, 1)
                            .Control(1, 5)
                            .Fill(0, 0, 1, 1, 2)
                            .End());
  const wxBitmap first = *gif->GetCurrentFrame();
  gif->Next();
  EXPECT_TRUE(gif->GetCurrentFrame()->IsSameAs(first));
  gif->Next();
  EXPECT_FALSE(gif->GetCurrentFrame()->IsSameAs(first));
}

TEST_F(GIFAnimation, OfThousandsOfFramesIsLoadedInTimeProportionalToThem) {
  CGIFWriter writer(32, 32, kPalette);
  for (int frame = 0; frame < 20'000; ++frame) writer.Control(1, 4).Fill(frame % 32, frame % 31, 1, 1, frame % 4);
  const auto gif = Load(writer.End());
  int count = 1;
  while (gif->Next()) ++count;
  EXPECT_EQ(count, 20'000);
}

TEST_F(GIFAnimation, CutAtAnyByteShowsWhatIsThereOrSaysWhyNot) {
  CGIFWriter writer(6, 5, kPalette);
  writer.Control(1, 5)
      .Fill(0, 0, 6, 5, 1)
      .Control(1, 5)
      .Image({1, 1, 3, 3, {1, 2, 3, 2, 1, 0, 3, 3, 1}, true, kPalette});
  const CBytes whole = writer.End();
  for (std::size_t length = 0; length < whole.size(); ++length) {
    const CFile file(CBytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)));
    CGIFAnimation gif;
    if (gif.LoadFile(file.Path())) {
      EXPECT_TRUE(gif.GetLoadError().empty());
      EXPECT_FALSE(gif.IsEmpty());
    } else {
      EXPECT_FALSE(gif.GetLoadError().empty());
      EXPECT_TRUE(gif.IsEmpty());
    }
  }
  EXPECT_EQ(PicturesOf(*Load(CBytes(whole.begin(), whole.end() - 1))), PicturesOf(*Load(whole)));
}

TEST_F(GIFAnimation, CutInsideOfAFrameDrawsTheRowsThatAreThere) {
  std::mt19937 random(3);
  CGIFWriter::CImage image{0, 0, 40, 40, {}, false, {}};
  for (int pixel = 0; pixel < 1600; ++pixel) image.pixels.push_back(1 + static_cast<int>(random() % 3));
  CBytes bytes = CGIFWriter(40, 40, kPalette).Image(image).End();
  bytes.resize(bytes.size() / 2);
  const auto gif = Load(bytes);
  EXPECT_NE(At(*gif, 0, 0), kGround);
  EXPECT_EQ(At(*gif, 39, 39), kGround);
}

TEST_F(GIFAnimation, ThatIsNoneIsRefusedWithTheReason) {
  EXPECT_EQ(ErrorOf({}), "The file is no GIF file");
  EXPECT_EQ(ErrorOf({'P', 'N', 'G', '8', '9', 'a', 1, 0, 1, 0, 0, 0, 0}), "The file is no GIF file");
  EXPECT_EQ(ErrorOf(CGIFWriter(5, 5, kPalette).End()), "The GIF file has no frame");
  EXPECT_EQ(ErrorOf(CGIFWriter(0, 0, kPalette).Fill(0, 0, 0, 0, 0).End()), "The GIF file has no size");
  CGIFAnimation gif;
  EXPECT_FALSE(gif.LoadFile("/no/such/file.gif"));
  EXPECT_EQ(gif.GetLoadError(), "There is no such file");
}

TEST_F(GIFAnimation, BeyondALimitIsRefusedBeforeAnythingIsDecoded) {
  CGIFWriter wide(65535, 1, kPalette);
  EXPECT_EQ(ErrorOf(wide.Fill(0, 0, 1, 1, 1).End()), "A bitmap may be at most 32767 pixels wide and high");
  const wxString tooMuch = "The frames of an animation may take at most 512 MB";
  CGIFWriter large(16384, 8193, kPalette);
  EXPECT_EQ(ErrorOf(large.Fill(0, 0, 1, 1, 1).End()), tooMuch);
  CGIFWriter many(1024, 1024, kPalette);
  for (int frame = 0; frame < 129; ++frame) many.Fill(0, 0, 1, 1, 1);
  EXPECT_EQ(ErrorOf(many.End()), tooMuch);
  // Frames larger than the screen show nothing more, but have to be decoded.
  CGIFWriter outside(1, 1, kPalette);
  for (int frame = 0; frame < 3; ++frame) outside.Image({0, 0, 8000, 8000, {1}, false, {}});
  EXPECT_EQ(ErrorOf(outside.End()), tooMuch);
  CGIFWriter small(1, 1, kPalette);
  for (int frame = 0; frame < 100'001; ++frame) small.Image({0, 0, 1, 1, {1}, false, {}});
  EXPECT_EQ(ErrorOf(small.End()), "An animation may have at most 100000 frames");
}

TEST_F(GIFAnimation, RefusedLeavesWhatIsThereAsItWas) {
  const CFile bad(CGIFWriter(5, 5, kPalette).End());
  const auto gif = Load(CGIFWriter(3, 2, kPalette).Control(1, 5).Fill(0, 0, 1, 1, 1).End());
  const auto before = PicturesOf(*gif);
  EXPECT_FALSE(gif->LoadFile(bad.Path()));
  EXPECT_EQ(PicturesOf(*gif), before);
  EXPECT_EQ(gif->GetWidth(), 3);
  EXPECT_EQ(gif->GetDelay(), 50);
  const CFile good(CGIFWriter(5, 5, kPalette).Fill(0, 0, 1, 1, 1).End());
  EXPECT_TRUE(gif->LoadFile(good.Path()));
  EXPECT_TRUE(gif->GetLoadError().empty());
  EXPECT_EQ(PicturesOf(*gif).size(), 2u);
  EXPECT_EQ(gif->GetWidth(), 5);
}

TEST_F(GIFAnimation, DamagedDataEndsItsFrame) {
  // Each byte of the file in turn is another one; nothing but an end of the test is expected.
  CGIFWriter writer(6, 5, kPalette);
  writer.Control(2, 5).Image({1, 1, 3, 3, {1, 2, 3, 2, 1, 0, 3, 3, 1}, true, kPalette}).Fill(0, 0, 6, 5, 1);
  const CBytes whole = writer.End();
  int loaded = 0;
  for (std::size_t at = 0; at < whole.size(); ++at)
    for (const int value : {0, 1, 9, 127, 255}) {
      CBytes damaged = whole;
      damaged[at] = static_cast<unsigned char>(value);
      const CFile file(damaged);
      CGIFAnimation gif;
      loaded += gif.LoadFile(file.Path()) ? 1 : 0;
    }
  EXPECT_GT(loaded, 0);
}

TEST_F(GIFAnimation, ShowsTheSamePicturesFromItsOwnFile) {
  CGIFWriter writer(20, 16, kPalette, 2);
  for (const int disposal : {0, 1, 2, 3, 1, 3, 2})
    writer.Control(disposal, 4 + disposal, disposal % 2).Fill(disposal * 2, 3, 9, 10 - disposal, 1 + disposal % 3);
  const auto gif = Load(writer.End());
  gif->SetLoop(true);
  const auto read = Reread(*gif, orlo::makeObject<CGIFAnimation>());
  EXPECT_EQ(PicturesOf(*read), PicturesOf(*gif));
  EXPECT_EQ(read->GetWidth(), 20);
  EXPECT_EQ(read->GetHeight(), 16);
  EXPECT_TRUE(read->GetLoop());
  for (gif->Rewind(), read->Rewind(); gif->Next();) {
    EXPECT_TRUE(read->Next());
    EXPECT_EQ(read->GetDelay(), gif->GetDelay());
  }
}

TEST_F(GIFAnimation, PassesOverMissingFramesOfItsNode) {
  const auto gif = Load(CGIFWriter(2, 2, kPalette).Control(1, 5).Fill(0, 0, 2, 2, 1).End());
  KnowPictureFormats();
  wxXmlNode node(wxXML_ELEMENT_NODE, "animation");
  const auto store = orlo::makeObject<CBase64Resources>();
  gif->WriteToXml(node, *store);
  node.GetChildren()->GetNext()->SetName("FRAME3");
  node.GetChildren()->GetNext()->DeleteAttribute("delay");
  node.DeleteAttribute("count");
  node.AddAttribute("count", "5");
  CGIFAnimation read;
  read.ReadFromXml(node, *store);
  EXPECT_EQ(PicturesOf(read), PicturesOf(*gif));
  EXPECT_EQ(read.GetDelay(), 0);
  node.DeleteAttribute("count");
  node.AddAttribute("count", "3");
  CGIFAnimation short3;
  short3.ReadFromXml(node, *store);
  EXPECT_TRUE(short3.IsEmpty());
}

TEST_F(GIFAnimation, ClearedKeepsItsPosition) {
  const auto gif = Load(CGIFWriter(2, 2, kPalette).Fill(0, 0, 2, 2, 1).Fill(0, 0, 2, 2, 2).End());
  gif->Next();
  gif->Clear();
  EXPECT_TRUE(gif->IsEmpty());
  EXPECT_EQ(gif->GetDelay(), 0);
  const CFile file(CGIFWriter(2, 2, kPalette).Control(1, 5).Fill(0, 0, 2, 2, 3).End());
  EXPECT_TRUE(gif->LoadFile(file.Path()));
  // The position is past the end of the new frames.
  EXPECT_EQ(gif->GetCurrentFrame(), nullptr);
  EXPECT_EQ(gif->GetDelay(), 0);
  EXPECT_FALSE(gif->Next());
  gif->Rewind();
  EXPECT_EQ(At(*gif, 0, 0), kBlue);
}

TEST_F(GIFAnimation, OfItsKindIsMadeNewAndEmpty) {
  CGIFAnimation gif;
  EXPECT_EQ(gif.GetTypeName(), "gif");
  EXPECT_TRUE(orlo::tryCast<CGIFAnimation>(gif.CreateNew()));
  EXPECT_EQ(gif.GetWidth(), -1);
  EXPECT_EQ(gif.GetHeight(), -1);
}

}  // namespace graphics::animation::test
