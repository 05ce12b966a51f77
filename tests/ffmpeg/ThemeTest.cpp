#include "tests/ffmpeg/Sequence.h"

using namespace vantra;
using testing::HasSubstr;

namespace {

std::string Numbers() {
  return Movie("numbers.mkv", NumberedFrames("25", 50) + " -c:v libx264 -preset ultrafast -pix_fmt yuv420p");
}

std::string Theme(const std::string& name, const std::string& attributes, const std::string& places) {
  return Written(name, "<theme " + attributes + ">" + places + "</theme>");
}

std::string InfileWith(const std::string& theme, const std::string& movies, const std::string& attributes = {}) {
  return Infile(Track("<theme src=\"" + theme + "\" " + attributes + ">" + movies + "</theme>"));
}

std::string Entry(const std::string& path, const std::string& id) {
  return "<movie src=\"" + UriOf(path) + "\" infile-id=\"" + id + "\"/>";
}

/// A data URI in an attribute: what it holds is escaped byte by byte.
std::string DataEntry(const std::string& xml, const std::string& id) {
  std::string escaped;
  for (const char letter : xml) {
    char text[4];
    std::snprintf(text, sizeof text, "%%%02X", static_cast<unsigned char>(letter));
    escaped += text;
  }
  return "<movie src=\"data:text/xml," + escaped + "\" infile-id=\"" + id + "\"/>";
}

constexpr CColour kGround{32, 64, 96, 255};

}  // namespace

TEST(Theme, PutsMoviesIntoTheirPlaces) {
  const std::string theme = Theme("two.xml", "length=\"0.4\" width=\"400\" height=\"200\" background=\"#204060\"",
                                  "<place movie=\"movie7\" x=\"20\" y=\"20\" width=\"160\" height=\"96\"/>"
                                  "<place number=\"2\" x=\"220\" y=\"20\" width=\"160\" height=\"96\" start=\"0.08\" "
                                  "duration=\"0.12\" movie-start=\"0.4\"/>"
                                  "<place movie=\"movie99\" x=\"0\" y=\"0\" width=\"9\" height=\"9\"/>");
  const auto extractor = Play(InfileWith(UriOf(theme), Entry(Numbers(), "movie7") + Entry(Numbers(), "movie8")));
  EXPECT_EQ(extractor->GetWidth(), 400);
  EXPECT_EQ(extractor->GetHeight(), 200);
  for (int frame = 0; frame < 10; ++frame) {
    EXPECT_EQ(NumberIn(*extractor, 20, 20, 160, 96), frame);
    EXPECT_EQ(NumberIn(*extractor, 220, 20, 160, 96), frame >= 2 && frame < 5 ? frame + 8 : -1) << frame;
    EXPECT_PRED3(IsNear, PixelAt(*extractor, 5, 5), kGround, 0);
    EXPECT_EQ(extractor->Advance(), frame < 9) << frame;
  }
}

TEST(Theme, PlaysInfilesOfItsMovies) {
  const std::string theme = Theme("one.xml", "length=\"1\" width=\"200\" height=\"100\"",
                                  "<place movie=\"movie1\" width=\"160\" height=\"96\" movie-start=\"0.08\"/>");
  const std::string inner = InfileOf(Numbers(), "starttime=\"0.4\"");
  const auto extractor = Play(InfileWith(UriOf(theme), DataEntry(inner, "movie1")));
  EXPECT_EQ(NumberIn(*extractor, 0, 0, 160, 96), 12);
  extractor->Advance();
  EXPECT_EQ(NumberIn(*extractor, 0, 0, 160, 96), 13);
}

TEST(Theme, LeavesThePlaceOfAMovieWithoutALocationEmpty) {
  const std::string theme = Theme("without.xml", "length=\"1\" width=\"320\" height=\"96\" background=\"#204060\"",
                                  "<place number=\"1\" width=\"160\" height=\"96\"/>"
                                  "<place number=\"2\" x=\"160\" width=\"160\" height=\"96\"/>");
  const auto extractor = Play(InfileWith(UriOf(theme), "<movie src=\"\" infile-id=\"a\"/>" + Entry(Numbers(), "b")));
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 80, 48), kGround, 0);
  EXPECT_EQ(NumberIn(*extractor, 160, 0, 160, 96), 0);
}

TEST(Theme, RepeatsAMovie) {
  const std::string theme = Theme("repeat.xml", "length=\"1\" width=\"160\" height=\"96\"",
                                  "<place number=\"1\" movie-start=\"1.92\" repeat=\"1\"/>");
  const auto extractor = Play(InfileWith(UriOf(theme), Entry(Numbers(), "movie1")));
  EXPECT_THAT(NumbersOf(*extractor, 4), testing::ElementsAre(49, 48, 49, 48));
}

TEST(Theme, HasABackgroundPictureBesideIt) {
  Movie("ground.png", "-f lavfi -i \"color=c=0x204060:s=20x10,format=rgb24\" -frames:v 1");
  const std::string theme = Theme("ground.xml", "length=\"1\" width=\"100\" height=\"100\" picture=\"ground.png\"", "");
  EXPECT_PRED3(IsNear, PixelAt(*Play(InfileWith(UriOf(theme), "")), 99, 0), kGround, 2);
}

TEST(Theme, ComesFromTheFolderOfThemes) {
  const std::string theme = Theme("relative.xml", "width=\"100\" height=\"50\" background=\"#204060\"", "");
  const std::string folder = UriOf(theme.substr(0, theme.rfind('/')));
  CExtractorParams params = Params(50);
  params.themeDir = folder.c_str();
  const auto extractor = Play(InfileWith("relative.xml", ""), params);
  EXPECT_EQ(extractor->GetHeight(), 25);
  EXPECT_PRED3(IsNear, PixelAt(*extractor, 9, 0), kGround, 0);
}

TEST(Theme, LastsAsLongAsTheInfileSays) {
  const std::string theme = Theme("short.xml", "length=\"0.04\" width=\"160\" height=\"96\"", "<place number=\"1\"/>");
  const auto extractor = Play(InfileWith(UriOf(theme), Entry(Numbers(), "movie1"), "duration=\"0.12\""));
  EXPECT_THAT(NumbersOf(*extractor, 4), testing::ElementsAre(1, 2, 2, 2));
}

TEST(Theme, WithoutALengthLastsAsLongAsItsPlaces) {
  Movie("ground.png", "-f lavfi -i \"color=c=0x204060:s=20x10,format=rgb24\" -frames:v 1");
  const std::string theme =
      Theme("endless.xml", "width=\"160\" height=\"96\" background=\"#204060\" picture=\"ground.png\"",
            "<place number=\"1\" movie-start=\"1.88\"/>");
  const std::string item = "<theme src=\"" + UriOf(theme) + "\">" + Entry(Numbers(), "movie1") + "</theme>";
  const auto once = Play(Infile(Track(item)));
  EXPECT_TRUE(once->Advance());
  EXPECT_TRUE(once->Advance());
  EXPECT_FALSE(once->Advance());
  EXPECT_NEAR(once->GetTime(), 0.08, 1e-9);
  EXPECT_THAT(NumbersOf(Infile(Track("<loop>" + item + "</loop>")), 5), testing::ElementsAre(47, 48, 49, 47, 48));
}

TEST(Theme, OfABackgroundAloneStandsStillForEver) {
  const std::string theme = Theme("alone.xml", "width=\"16\" height=\"16\" background=\"#204060\"", "");
  const auto extractor = Play(InfileWith(UriOf(theme), ""));
  EXPECT_FALSE(extractor->Advance());
  EXPECT_FALSE(extractor->Advance());
  EXPECT_NEAR(extractor->GetTime(), 0.08, 1e-9);
}

TEST(Theme, TakesTheFirstOfTwoMoviesOfOneName) {
  const std::string theme = Theme("same.xml", "width=\"160\" height=\"96\"", "<place movie=\"movie1\"/>");
  const auto extractor = Play(InfileWith(
      UriOf(theme), DataEntry(InfileOf(Numbers(), "starttime=\"0.2\""), "movie1") + Entry(Numbers(), "movie1")));
  EXPECT_EQ(NumberOf(*extractor), 5);
}

TEST(Theme, ThatIsBrokenIsRefused) {
  const std::string size = "width=\"10\" height=\"10\"";
  const struct {
    std::string text;
    const char* error;
  } kCases[] = {
      {"<theme", "Not a theme description"},
      {"<other/>", "Not a theme description"},
      {"<theme/>", "A theme must have a width and a height"},
      {"<theme width=\"nan\" height=\"2\"/>", "A theme must have a width and a height"},
      {"<theme " + size + " background=\"red\"/>", "A theme's background must be a colour"},
      {"<theme " + size + "><place/></theme>", "A theme's place names no movie"},
      {"<theme " + size + " picture=\"http://there/x.png\"/>", "Not a local file"},
      {"<!DOCTYPE a [<!ENTITY b \"c\">]><theme " + size + "/>", "Not a theme description"},
  };
  int number = 0;
  for (const auto& one : kCases) {
    const std::string theme = Written("broken" + std::to_string(number++) + ".xml", one.text);
    EXPECT_FALSE(Open(InfileWith(UriOf(theme), "")));
    EXPECT_THAT(LastText(), HasSubstr(one.error));
  }
  EXPECT_FALSE(Open(InfileWith("file:///nowhere/theme.xml", "")));
  EXPECT_EQ(LastCode(), 5);
}

/// What a theme of a thousand places shows in each of them.
void ExpectTooMuch(const std::string& name, const std::string& innermost, int depth, const char* limit) {
  std::string places;
  for (int place = 0; place < 1000; ++place) places += "<place number=\"1\"/>";
  const std::string theme = Theme(name, "width=\"1280\" height=\"720\"", places);
  std::string infile = innermost;
  for (; depth > 0; --depth) infile = InfileWith(UriOf(theme), DataEntry(infile, "a"));
  EXPECT_FALSE(Open(infile));
  EXPECT_EQ(LastCode(), 7);
  EXPECT_THAT(LastText(), HasSubstr(limit));
}

TEST(Theme, MultipliesNoItemsBeyondTheLimit) {
  ExpectTooMuch("many-empty.xml", "<infile/>", 4, "100000 items");
  ExpectTooMuch("many-lists.xml", Infile(Track("<videotracklist/>")), 3, "100000 items");
}

TEST(Theme, MultipliesNoTextBeyondTheLimit) {
  ExpectTooMuch("many-texts.xml", "<infile id=\"" + std::string(1'000'000, 'a') + "\"/>", 1, "32 MB");
}

TEST(Theme, MultipliesNoBackgroundsBeyondTheLimit) {
  const std::string ground = Theme("many-ground.xml", "width=\"1280\" height=\"720\" background=\"#204060\"", "");
  ExpectTooMuch("many-grounds.xml", InfileWith(UriOf(ground), ""), 1, "256 megapixels");
}

TEST(Theme, EndsWhereItLiesWithinItselfTooOften) {
  const std::string theme = Theme("deep.xml", "width=\"16\" height=\"16\"", "<place number=\"1\"/>");
  std::string infile = InfileOf(Numbers());
  // Escapes of escapes grow threefold.
  for (int depth = 0; depth < 9; ++depth) {
    std::string once;
    for (const char letter : infile)
      once += letter == '%'   ? "%25"
              : letter == '"' ? "%22"
              : letter == '<' ? "%3C"
              : letter == '>' ? "%3E"
                              : std::string(1, letter);
    infile = InfileWith(UriOf(theme), "<movie src=\"data:text/xml," + once + "\" infile-id=\"a\"/>");
  }
  EXPECT_FALSE(Open(infile));
  EXPECT_THAT(LastText(), HasSubstr("8 deep"));
}
