#include "authed/data/Editable.h"
#include "authed/data/MovieFile.h"
#include "authed/data/MovieTheme.h"
#include "authed/data/ResolveShaders.h"
#include "backend/infilexml/Audio.h"
#include "backend/infilexml/Filter.h"
#include "backend/infilexml/Shader.h"
#include "backend/infilexml/Theme.h"
#include "backend/infilexml/Video.h"
#include "foundation/Cast.h"
#include "foundation/Error.h"
#include "tests/model/TestElement.h"

#include <gtest/gtest.h>

#include <limits>

namespace authed::data {

namespace {

using namespace vantra::infilexml;

class MovieInfile : public testing::Test {
protected:
  MovieInfile() { graphics::StartForTests(); }

private:
  graphics::CToolkitLock lock_;
};

std::string stdText(const orlo::String& text) {
  return orlo::toStdString(text);
}

orlo::P<CMovieFile> TenSeconds() {
  auto movie = orlo::makeObject<CMovieFile>();
  movie->filename.Assign("/films/a b.mp4");
  movie->duration = 10;
  return movie;
}

/// With these tracks of pictures.
orlo::P<CEditedMovie> Edited(const wxString& tracks) {
  auto movie = orlo::makeObject<CEditedMovie>();
  movie->vantraXml = "<infile><videotracklist>" + tracks + "</videotracklist></infile>";
  return movie;
}

orlo::P<CMovieTheme> ThemeOf(const orlo::P<CMovie>& movie, int times) {
  auto theme = orlo::makeObject<CMovieTheme>();
  theme->duration = 10;
  for (int i = 0; i < times; ++i) theme->AddMovie(movie);
  return theme;
}

std::string refusalOf(const CMovie& movie, double length) {
  try {
    movie.BuildInfile(25, length);
    return "none";
  } catch (const orlo::CError& error) {
    return stdText(error.getMessage());
  }
}

TEST_F(MovieInfile, FileDescribesItselfWithOneTrackOfEach) {
  const auto movie = TenSeconds();
  EXPECT_EQ(ToText(*movie->CreateInfile(25)),
            R"(<infile id=""><videotracklist duration="10"><track duration="10" start="0" index="0" enabled="1">)"
            R"(<video duration="10" starttime="0" src="file:///films/a%20b.mp4" infile-id="movie0" rotation="0")"
            R"( mirrorvertical="0" mirrorhorizontal="0" /></track></videotracklist><audiotracklist duration="10">)"
            R"(<track duration="10" start="0" index="0" enabled="1"><audio duration="10" starttime="0" src="silent" />)"
            R"(</track></audiotracklist></infile>)");
  movie->audioDuration = 9;
  const auto audio = movie->CreateInfile(25)->GetAudioTracklist()->GetTrack(0)->item;
  EXPECT_EQ(stdText(orlo::cast<CAudio>(audio)->src->getDescription()), "file:///films/a%20b.mp4");
}

TEST_F(MovieInfile, RepeatedIsCutAtTheLength) {
  const auto infile = TenSeconds()->BuildInfile(25, 25);
  const auto& video = *infile->GetVideoTracklist();
  ASSERT_EQ(video.GetTrackCount(), 3U);
  const double starts[] = {0, 10, 20};
  const double durations[] = {10, 10, 5};
  for (std::size_t index = 0; index < 3; ++index) {
    EXPECT_EQ(video.GetTrack(index)->start, starts[index]);
    EXPECT_EQ(video.GetTrack(index)->duration, durations[index]);
  }
  EXPECT_EQ(orlo::cast<CVideo>(video.GetTrack(2)->item)->duration, 5);
  EXPECT_EQ(video.GetDuration(), 25);
  EXPECT_EQ(infile->GetAudioTracklist()->GetTrackCount(), 3U);
}

TEST_F(MovieInfile, RepeatedForNoTimeHasSilenceAlone) {
  for (const double length : {0.0, -5.0}) {
    const auto infile = TenSeconds()->BuildInfile(25, length);
    EXPECT_EQ(infile->GetVideoTracklist()->GetTrackCount(), 0U);
    ASSERT_EQ(infile->GetAudioTracklist()->GetTrackCount(), 1U);
    EXPECT_TRUE(orlo::cast<CAudio>(infile->GetAudioTracklist()->GetTrack(0)->item)->IsSilent());
  }
}

TEST_F(MovieInfile, WithoutALengthIsNotRepeatedForEver) {
  const auto movie = TenSeconds();
  movie->duration = 0;
  EXPECT_EQ(movie->BuildInfile(25, 100)->GetVideoTracklist()->GetTrackCount(), 1U);
  movie->duration = 0.000001;
  EXPECT_THROW(movie->BuildInfile(25, 100), orlo::CError);
}

TEST_F(MovieInfile, WithoutAudioTracksGetsOneOfSilence) {
  CEditedMovie movie;
  movie.vantraXml =
      R"(<infile><videotracklist><track duration="4"><video duration="4"/></track></videotracklist></infile>)";
  const auto infile = movie.BuildInfile(25, 10);
  EXPECT_EQ(infile->GetVideoTracklist()->GetTrackCount(), 3U);
  ASSERT_EQ(infile->GetAudioTracklist()->GetTrackCount(), 1U);
  EXPECT_EQ(infile->GetAudioTracklist()->GetTrack(0)->duration, 10);
}

TEST_F(MovieInfile, EditedIsNullWithoutAnInfile) {
  CEditedMovie movie;
  EXPECT_FALSE(movie.CreateInfile(25));
  movie.vantraXml = "<project/>";
  EXPECT_FALSE(movie.CreateInfile(25));
  EXPECT_FALSE(movie.BuildInfile(25, 10));
  movie.vantraXml = "<infile id='x'/>";
  EXPECT_EQ(stdText(movie.CreateInfile(25)->id), "x");
}

TEST_F(MovieInfile, OfUnreadableTextsIsNull) {
  CEditedMovie movie;
  for (const char* const text : {"", "infile", "<Infile/>", "<infile>", "<infile/><infile/>"}) {
    movie.vantraXml = text;
    EXPECT_FALSE(movie.CreateInfile(25)) << text;
  }
  movie.vantraXml = "<infile><track/></infile>";
  EXPECT_THROW(movie.CreateInfile(25), qeb::discmenuxml::CDiscMenuError);
}

TEST_F(MovieInfile, NamesItsPicturesAndItsSound) {
  const auto expectNames = [](const CMovie& movie) {
    const auto infile = movie.CreateInfile(25);
    EXPECT_EQ(infile->FindItemById("movie0"), infile->GetVideoTracklist()->GetTrack(0)->item);
    EXPECT_EQ(infile->FindItemById("audio0"), infile->GetAudioTracklist()->GetTrack(0)->item);
  };
  const auto movie = TenSeconds();
  expectNames(*movie);
  expectNames(*ThemeOf(movie, 1));
  movie->audioDuration = 10;
  expectNames(*movie);
}

TEST_F(MovieInfile, HasSoundOnlyIfItsMovieHas) {
  const auto movie = TenSeconds();
  const auto isSilent = [&](double audioDuration) {
    movie->audioDuration = audioDuration;
    return orlo::cast<CAudio>(movie->CreateInfile(25)->GetAudioTracklist()->GetTrack(0)->item)->IsSilent();
  };
  EXPECT_TRUE(isSilent(-1));
  EXPECT_TRUE(isSilent(0));
  EXPECT_FALSE(isSilent(0.04));
}

TEST_F(MovieInfile, RepeatedHasNoClipsFromTheLengthOn) {
  const auto movie = Edited(R"(<track start="0" duration="2"><video duration="2"/></track>
      <track start="2" duration="3"><video duration="3"/></track>)");
  const auto infile = movie->BuildInfile(25, 12);
  const auto& video = *infile->GetVideoTracklist();
  ASSERT_EQ(video.GetTrackCount(), 5U);
  const double starts[] = {0, 2, 5, 7, 10};
  for (std::size_t index = 0; index < 5; ++index) EXPECT_EQ(video.GetTrack(index)->start, starts[index]);
  EXPECT_EQ(video.GetTrack(4)->duration, 2);
  EXPECT_EQ(video.GetDuration(), 12);
}

TEST_F(MovieInfile, RepeatedHasAnEndOfItsOwnForSound) {
  CEditedMovie movie;
  movie.vantraXml = R"(<infile><videotracklist><track duration="4"><video duration="4"/></track></videotracklist>
      <audiotracklist><track duration="3"><audio duration="3"/></track></audiotracklist></infile>)";
  const auto infile = movie.BuildInfile(25, 8);
  EXPECT_EQ(infile->GetVideoTracklist()->GetDuration(), 8);
  ASSERT_EQ(infile->GetAudioTracklist()->GetTrackCount(), 2U);
  EXPECT_EQ(infile->GetAudioTracklist()->GetTrack(1)->start, 4);
  EXPECT_EQ(infile->GetAudioTracklist()->GetDuration(), 7);
}

TEST_F(MovieInfile, CutsWhateverItsTracksHoldAndLengthensNothing) {
  const auto movie = Edited(R"(<track duration="9"><filter duration="9"/></track>
      <track duration="9"><theme duration="9"/></track>
      <track duration="9"><videotracklist duration="9"/></track>
      <track duration="9"><video duration="1"/></track><track duration="9"/>)");
  const auto infile = movie->BuildInfile(25, 4);
  const auto& video = *infile->GetVideoTracklist();
  ASSERT_EQ(video.GetTrackCount(), 5U);
  for (std::size_t index = 0; index < 5; ++index) EXPECT_EQ(video.GetTrack(index)->duration, 4);
  EXPECT_EQ(orlo::cast<CFilter>(video.GetTrack(0)->item)->duration, 4);
  EXPECT_EQ(orlo::cast<CTheme>(video.GetTrack(1)->item)->duration, 4);
  EXPECT_EQ(orlo::cast<CVideoTracklist>(video.GetTrack(2)->item)->GetDuration(), 4);
  EXPECT_EQ(orlo::cast<CVideo>(video.GetTrack(3)->item)->duration, 1);
}

TEST_F(MovieInfile, OfALengthThatIsNoNumberHasSilenceAlone) {
  const auto infile = TenSeconds()->BuildInfile(25, std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(infile->GetVideoTracklist()->GetTrackCount(), 0U);
  EXPECT_EQ(infile->GetAudioTracklist()->GetTrack(0)->duration, 0);
}

TEST_F(MovieInfile, IsNotRepeatedBeyondMeasure) {
  const double forEver = std::numeric_limits<double>::infinity();
  EXPECT_EQ(refusalOf(*TenSeconds(), forEver), "A movie may be repeated at most 10000 times");
  wxString pictures;
  for (int i = 0; i < 50'000; ++i) pictures += "<track duration=\"0.001\"/>";
  EXPECT_EQ(refusalOf(*Edited(pictures), 10), "An infile may have at most 200000 elements");
  const auto wordy = Edited("<!--" + wxString('x', 10'000'000) + "--><track duration=\"0.001\"/>");
  EXPECT_EQ(refusalOf(*wordy, 10), "A movie may be repeated at most for 64 MB of its text");
}

TEST_F(MovieInfile, OfAThemeDescribesAMovieThatItShowsTwiceOnce) {
  const auto wordy = Edited("<!--" + wxString('x', 10'000'000) + "--><track duration=\"10\"/>");
  const auto infile = ThemeOf(wordy, 10'000)->CreateInfile(25);
  const auto* const theme = orlo::cast<CTheme>(infile->GetVideoTracklist()->GetTrack(0)->item);
  ASSERT_EQ(theme->GetMovieCount(), 10'000U);
  EXPECT_EQ(theme->GetMovie(0)->src, theme->GetMovie(9'999)->src);
}

TEST_F(MovieInfile, OfThemesWithinThemesIsBounded) {
  orlo::P<CMovie> theme = TenSeconds();
  for (int depth = 0; depth < 20; ++depth) theme = ThemeOf(theme, 2);
  EXPECT_EQ(refusalOf(*theme, 10), "The movies of a theme may have at most 16 MB of text");
}

TEST_F(MovieInfile, OfAThemeThatShowsItselfComesToAnEnd) {
  const auto theme = ThemeOf(TenSeconds(), 1);
  theme->AddMovie(theme);
  const auto infile = theme->CreateInfile(25);
  EXPECT_FALSE(orlo::cast<CTheme>(infile->GetVideoTracklist()->GetTrack(0)->item)->GetMovie(1)->src);
  theme->Assign(*orlo::makeObject<CMovieTheme>());
}

TEST_F(MovieInfile, KeepsTheNamesOfShadersThatAreNoURI) {
  const auto infile =
      Edited("<track><shader uri='//h:x/a.fx'/></track><track><shader uri='b.fx'/></track>")->CreateInfile(25);
  const auto nameOf = [&](std::size_t index) {
    return stdText(orlo::cast<CShader>(infile->GetTrack(index)->item)->GetUri());
  };
  ResolveShaders(*infile, "file:///filters");
  EXPECT_EQ(nameOf(0), "//h:x/a.fx");
  EXPECT_EQ(nameOf(1), "file:///filters/b.fx");
}

TEST_F(MovieInfile, OfAMillionPicturesIsAnError) {
  wxString pictures;
  for (int i = 0; i < 1'000'000; ++i) pictures += "<track/>";
  EXPECT_EQ(refusalOf(*Edited(pictures), 10), "An infile may have at most 200000 elements");
}

}  // namespace

}  // namespace authed::data
