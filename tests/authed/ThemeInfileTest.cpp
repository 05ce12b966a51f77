#include "authed/data/Editable.h"
#include "authed/data/MovieFile.h"
#include "authed/data/MovieTheme.h"
#include "backend/infilexml/Audio.h"
#include "backend/infilexml/Theme.h"
#include "foundation/Cast.h"
#include "foundation/URIEscape.h"
#include "tests/model/TestElement.h"

#include <gtest/gtest.h>

namespace authed::data {

namespace {

using namespace vantra::infilexml;

class ThemeInfile : public testing::Test {
protected:
  ThemeInfile() { graphics::StartForTests(); }

private:
  graphics::CToolkitLock lock_;
};

std::string stdText(const orlo::String& text) {
  return orlo::toStdString(text);
}

/// Stays as long as the infile does.
const CTheme& NodeOf(const CInfile& infile) {
  return *orlo::cast<CTheme>(infile.GetVideoTracklist()->GetTrack(0)->item);
}

/// The infile that stands in a theme for a movie.
orlo::P<CInfile> Inner(const CTheme& node, std::size_t index) {
  const std::string text = stdText(node.GetMovie(index)->src->getDescription());
  constexpr std::string_view kBegin = "data:text/xml,";
  EXPECT_TRUE(text.starts_with(kBegin));
  return FromText(stdText(orlo::uriUnescape(orlo::fromUTF8(text.substr(kBegin.size())))));
}

orlo::P<CEditedMovie> FourSeconds() {
  auto edited = orlo::makeObject<CEditedMovie>();
  edited->vantraXml = R"(<infile><videotracklist><track duration="4"/></videotracklist></infile>)";
  return edited;
}

TEST_F(ThemeInfile, LeavesItToTheBackendWhereARelativeDescriptionLies) {
  CMovieTheme theme;
  theme.SetSrc("walls/a wall.xml");
  EXPECT_EQ(stdText(NodeOf(*theme.CreateInfile(25)).src->getDescription()), "walls/a%20wall.xml");
  theme.SetSrc("/themes/wall.xml");
  EXPECT_EQ(stdText(NodeOf(*theme.CreateInfile(25)).src->getDescription()), "file:///themes/wall.xml");
  theme.SetSrc("");
  EXPECT_FALSE(NodeOf(*theme.CreateInfile(25)).src);
}

TEST_F(ThemeInfile, HasOneTrackOfEach) {
  CMovieTheme theme;
  theme.duration = 6;
  const auto infile = theme.CreateInfile(25);
  ASSERT_EQ(infile->GetVideoTracklist()->GetTrackCount(), 1U);
  ASSERT_EQ(infile->GetAudioTracklist()->GetTrackCount(), 1U);
  EXPECT_EQ(stdText(infile->GetTrack(0)->item->GetId()), "movie0");
  EXPECT_EQ(stdText(infile->GetTrack(1)->item->GetId()), "audio0");
  EXPECT_EQ(infile->GetTrack(0)->duration, 6);
  EXPECT_EQ(infile->GetTrack(1)->duration, 6);
}

TEST_F(ThemeInfile, RepeatsAMovieForItsLength) {
  CMovieTheme theme;
  theme.duration = 10;
  theme.AddMovie(FourSeconds());
  const auto infile = theme.CreateInfile(25);
  EXPECT_EQ(Inner(NodeOf(*infile), 0)->GetVideoTracklist()->GetTrackCount(), 3U);
}

TEST_F(ThemeInfile, OfUnknownLengthShowsAMovieOnce) {
  CMovieTheme theme;
  ASSERT_TRUE(theme.IsDurationUnknown());
  theme.AddMovie(FourSeconds());
  const auto infile = theme.CreateInfile(25);
  EXPECT_EQ(Inner(NodeOf(*infile), 0)->GetVideoTracklist()->GetTrackCount(), 1U);
  EXPECT_EQ(orlo::cast<CSilentAudio>(infile->GetTrack(1)->item)->duration, 0);
}

TEST_F(ThemeInfile, NamesMoviesOfOneIdAlike) {
  CMovieTheme theme;
  for (int copy = 0; copy < 2; ++copy) {
    theme.AddMovie(orlo::makeObject<CMovieFile>());
    theme.GetMovie(theme.GetMovieCount() - 1)->id = 7;
  }
  const auto infile = theme.CreateInfile(25);
  ASSERT_EQ(NodeOf(*infile).GetMovieCount(), 2U);
  EXPECT_EQ(stdText(NodeOf(*infile).GetMovie(0)->infileId), "movie7");
  EXPECT_EQ(stdText(NodeOf(*infile).GetMovie(1)->infileId), "movie7");
}

}  // namespace

}  // namespace authed::data
