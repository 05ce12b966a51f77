#include "backend/infilexml/Audio.h"
#include "backend/infilexml/Element.h"
#include "backend/infilexml/Filter.h"
#include "backend/infilexml/Infile.h"
#include "backend/infilexml/InfileText.h"
#include "backend/infilexml/Loop.h"
#include "backend/infilexml/Shader.h"
#include "backend/infilexml/Theme.h"
#include "backend/infilexml/Video.h"
#include "foundation/Cast.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>

namespace vantra::infilexml {

namespace {

std::string textOf(const TiXmlElement& element) {
  TiXmlPrinter printer;
  printer.SetStreamPrinting();
  element.Accept(&printer);
  return printer.Str();
}

std::string written(const IInfileXmlNode& node, const std::string& name) {
  TiXmlElement element(name);
  node.Write(element);
  return textOf(element);
}

std::string written(const CTrackItem& item) {
  return written(item, orlo::toStdString(item.GetElementName()));
}

template <class Node>
orlo::P<Node> readInto(orlo::P<Node> node, const std::string& text) {
  node->Read(*ParseElement(text));
  return node;
}

template <class Node>
orlo::P<Node> read(const std::string& text) {
  return readInto(orlo::makeObject<Node>(), text);
}

orlo::P<CTrack> readTrack(const std::string& text) {
  return readInto(orlo::makeObject<CTrack>(0), text);
}

std::string stdText(const orlo::String& text) {
  return orlo::toStdString(text);
}

std::string messageOf(const orlo::CException& error) {
  return orlo::toStdString(error.getMessage());
}

TEST(Infile, WritesItsIdAndBothLists) {
  CInfile infile;
  infile.id = "menu";
  EXPECT_EQ(ToText(infile),
            R"(<infile id="menu"><videotracklist duration="0" /><audiotracklist duration="0" /></infile>)");
}

TEST(Infile, TakesItsListsInAnyOrder) {
  const auto infile = FromText(R"(<infile id="a"><audiotracklist duration="7"/><videotracklist duration="5">
      <track duration="5" start="1" index="3" enabled="1"/></videotracklist></infile>)");
  ASSERT_TRUE(infile);
  EXPECT_EQ(stdText(infile->id), "a");
  EXPECT_EQ(infile->GetVideoTracklist()->GetDuration(), 5);
  EXPECT_EQ(infile->GetAudioTracklist()->GetDuration(), 7);
  ASSERT_EQ(infile->GetTrackCount(), 1U);
  EXPECT_EQ(infile->GetTrack(0)->index, 3);
}

TEST(Infile, RefusesOtherChildren) {
  try {
    FromText("<infile><track/></infile>");
    FAIL();
  } catch (const qeb::discmenuxml::CDiscMenuError& error) {
    EXPECT_EQ(messageOf(error), "invalid element found in infile node");
  }
}

TEST(Infile, OfAnotherTextIsNone) {
  EXPECT_FALSE(FromText(""));
  EXPECT_FALSE(FromText("words"));
  EXPECT_FALSE(FromText("<infile>"));
  EXPECT_FALSE(FromText("<Infile/>"));
  EXPECT_FALSE(FromText("<project/>"));
  EXPECT_FALSE(FromText(R"(<!DOCTYPE infile [<!ENTITY a "b">]><infile id="&a;"/>)"));
  EXPECT_TRUE(FromText("<?xml version='1.0'?><!-- a --><infile/>"));
}

TEST(Infile, FindsItemsInTheOrderOfItsTracks) {
  const auto infile = FromText(R"(<infile><videotracklist>
      <track><video duration="1" infile-id="movie1"/></track>
      <track/>
      <track><video duration="2" infile-id="movie2"/></track>
      <track><video duration="3" infile-id="movie2"/></track></videotracklist></infile>)");
  const orlo::P<CTrackItem> item = infile->FindItemById("movie2");
  ASSERT_TRUE(item);
  EXPECT_EQ(orlo::cast<CVideo>(item)->duration, 2);
  EXPECT_FALSE(infile->FindItemById("movie3"));
}

TEST(Infile, CountsAudioTracksBehindVideoTracks) {
  CInfile infile;
  infile.GetAudioTracklist()->AddTrack(orlo::makeObject<CTrack>(1));
  infile.GetVideoTracklist()->AddTrack(orlo::makeObject<CTrack>(0));
  EXPECT_EQ(infile.GetTrackCount(), 2U);
  EXPECT_EQ(infile.GetTrack(0), infile.GetVideoTracklist()->GetTrack(0));
  EXPECT_EQ(infile.GetTrack(1), infile.GetAudioTracklist()->GetTrack(0));
}

TEST(Infile, ThatIsTooDeepOrTooLargeIsAnError) {
  std::string deep;
  for (int i = 0; i < 1'000'000; ++i) deep += "<a>";
  EXPECT_THROW(FromText(deep), orlo::CError);
  std::string many = "<infile>";
  for (int i = 0; i < 200'000; ++i) many += "<a/>";
  EXPECT_THROW(FromText(many + "</infile>"), orlo::CError);
  EXPECT_THROW(FromText(std::string(kMostTextBytes + 1, ' ')), orlo::CError);
}

TEST(Tracklist, ReadsItsIdAndDoesNotWriteIt) {
  const auto list =
      read<CVideoTracklist>(R"(<videotracklist duration="2.5" id="inner"><other/><track/></videotracklist>)");
  EXPECT_EQ(stdText(list->GetId()), "inner");
  EXPECT_EQ(list->GetTrackCount(), 1U);
  EXPECT_EQ(
      written(*list),
      R"(<videotracklist duration="2.5"><track duration="0" start="0" index="0" enabled="1" /></videotracklist>)");
}

TEST(Tracklist, OfAudioHasANameOfItsOwn) {
  EXPECT_EQ(stdText(CAudioTracklist().GetElementName()), "CAudioTracklist");
  EXPECT_EQ(stdText(CVideoTracklist().GetElementName()), "videotracklist");
}

TEST(Track, WritesAPlaceOnlyAboveAThousandth) {
  CTrack track(4);
  EXPECT_EQ(written(track, "track"), R"(<track duration="0" start="0" index="4" enabled="1" />)");
  track.x = track.y = track.width = track.height = 0.001;
  EXPECT_EQ(written(track, "track"), R"(<track duration="0" start="0" index="4" enabled="1" />)");
  track.x = -5;
  track.y = 0.0011;
  track.width = 320;
  track.height = 180.5;
  EXPECT_EQ(written(track, "track"),
            R"(<track duration="0" y="0.0011" width="320" height="180.5" start="0" index="4" enabled="1" />)");
}

TEST(Track, IsEnabledByAnyNumberButZero) {
  EXPECT_FALSE(readTrack(R"(<track enabled="0"/>)")->enabled);
  EXPECT_TRUE(readTrack(R"(<track enabled="1"/>)")->enabled);
  EXPECT_TRUE(readTrack(R"(<track enabled="-3"/>)")->enabled);
  EXPECT_TRUE(readTrack("<track/>")->enabled);
  CTrack track(0);
  track.enabled = false;
  EXPECT_EQ(written(track, "track"), R"(<track duration="0" start="0" index="0" enabled="0" />)");
}

TEST(Track, MissingAttributesLeaveItAsItIs) {
  const auto track = orlo::makeObject<CTrack>(7);
  track->start = 3;
  readInto(track, R"(<track duration="long" x="12"/>)");
  EXPECT_EQ(track->start, 3);
  EXPECT_EQ(track->duration, 0);
  EXPECT_EQ(track->index, 7);
  EXPECT_EQ(track->x, 12);
}

TEST(Track, TakesItsFirstChildAsItem) {
  const auto track = readTrack(R"(<track><!-- a --><audio duration="2"/><video/></track>)");
  ASSERT_TRUE(track->item);
  EXPECT_EQ(stdText(track->item->GetElementName()), "audio");
}

TEST(Track, RefusesUnknownItems) {
  for (const char* const name : {"movie", "audiotracklist", "CAudioTracklist", "Video", "rect"}) {
    try {
      readTrack("<track><" + std::string(name) + "/></track>");
      ADD_FAILURE() << name;
    } catch (const orlo::CError& error) {
      EXPECT_EQ(messageOf(error), "unknown track item type");
    }
  }
}

TEST(Track, MakesEachKindOfItem) {
  for (const char* const name : {"video", "audio", "filter", "theme", "videotracklist", "loop", "shader"})
    EXPECT_EQ(stdText(readTrack("<track><" + std::string(name) + "/></track>")->item->GetElementName()), name);
}

TEST(Video, WritesItsAttributesInOrder) {
  CVideo video(10, 2.5);
  EXPECT_EQ(written(video),
            R"(<video duration="10" starttime="2.5" rotation="0" mirrorvertical="0" mirrorhorizontal="0" />)");
  video.src = orlo::makeObject<orlo::CURI>("file:///films/a%20b.mp4");
  video.SetId("movie1");
  video.clippingRect = orlo::makeObject<CRect>(1, 2, 3, 4);
  video.rotation = 90;
  video.mirrorVertical = true;
  EXPECT_EQ(written(video), R"(<video duration="10" starttime="2.5" src="file:///films/a%20b.mp4" infile-id="movie1")"
                            R"( rotation="90" mirrorvertical="1" mirrorhorizontal="0">)"
                            R"(<clippingrect x="1" y="2" width="3" height="4" /></video>)");
}

TEST(Video, BringsBackWhatWasWritten) {
  const std::string text =
      R"(<video duration="10" starttime="2.5" src="a.mp4" infile-id="m&amp;1" rotation="-12.5")"
      R"( mirrorvertical="0" mirrorhorizontal="1"><clippingrect x="-1" y="2" width="3" height="4" />)"
      R"(</video>)";
  EXPECT_EQ(written(*read<CVideo>(text)), text);
}

TEST(Audio, WritesFadesUnlessTheyAreZero) {
  CAudio audio;
  audio.src = orlo::makeObject<orlo::CURI>("a.wav");
  EXPECT_EQ(written(audio), R"(<audio duration="0" starttime="0" src="a.wav" />)");
  audio.fadeIn = -1;
  audio.fadeOut = 0.5;
  EXPECT_EQ(written(audio), R"(<audio duration="0" starttime="0" fade-in="-1" fade-out="0.5" src="a.wav" />)");
}

TEST(Audio, OfSilenceHasTheSourceSilent) {
  const CSilentAudio silence(12);
  EXPECT_EQ(written(silence), R"(<audio duration="12" starttime="0" src="silent" />)");
  EXPECT_TRUE(read<CAudio>(written(silence))->IsSilent());
  EXPECT_FALSE(read<CAudio>(R"(<audio src="silent.wav"/>)")->IsSilent());
}

TEST(Theme, HoldsMovies) {
  const std::string text =
      R"(<theme duration="8" src="themes/wall.xml"><movie src="file:///a.mp4" infile-id="movie1" />)"
      R"(<movie src="" infile-id="movie2" /></theme>)";
  const auto theme = read<CTheme>(text);
  ASSERT_EQ(theme->GetMovieCount(), 2U);
  EXPECT_EQ(stdText(theme->GetMovie(0)->infileId), "movie1");
  EXPECT_EQ(written(*theme), text);
}

TEST(Loop, HoldsOneItem) {
  EXPECT_EQ(written(CLoop()), "<loop />");
  const std::string text = R"(<loop><audio duration="3" starttime="0" src="silent" /></loop>)";
  EXPECT_EQ(written(*read<CLoop>(text)), text);
}

TEST(Filter, HoldsParametersOfEveryKind) {
  const std::string text =
      R"(<filter duration="1" src="blur"><string name="a" value="x &amp; y" />)"
      R"(<passthrough name="b" value=" as it is " /><boolean name="c" value="true" />)"
      R"(<bool name="d" value="false" /><uri name="e" value="file:///a" /><float name="f" value="0.5" />)"
      R"(<integer name="g" value="-7" /></filter>)";
  const auto filter = read<CFilter>(text);
  EXPECT_EQ(filter->GetParamCount(), 7U);
  EXPECT_EQ(written(*filter), text);
}

TEST(Filter, RefusesUnknownParameters) {
  try {
    read<CFilter>("<filter><double/></filter>");
    FAIL();
  } catch (const orlo::CError& error) {
    EXPECT_EQ(messageOf(error), "unknown filter param type");
  }
}

TEST(BooleanParam, IsTrueForOneAndTrue) {
  for (const char* const text : {"true", "1"})
    EXPECT_EQ(written(*read<CBoolean>("<boolean name='a' value='" + std::string(text) + "'/>"), "boolean"),
              R"(<boolean name="a" value="true" />)");
  for (const char* const text : {"false", "0", "TRUE", "yes", ""})
    EXPECT_FALSE(read<CBoolean>("<boolean value='" + std::string(text) + "'/>")->value) << text;
}

TEST(Shader, WritesItsUriAlsoIfItIsEmpty) {
  CShader shader;
  EXPECT_EQ(written(shader), R"(<shader uri=""><parameter /></shader>)");
  shader.SetUri("wave.fx");
  shader.AddParameter(0.25);
  shader.AddParameter(-3);
  const std::string text =
      R"(<shader uri="wave.fx"><parameter><float value="0.25" /><float value="-3" /></parameter></shader>)";
  EXPECT_EQ(written(shader), text);
  EXPECT_EQ(written(*read<CShader>(text)), text);
}

TEST(Element, WritesAndReadsNumbersTheSameInEveryLocale) {
  const std::string before = std::setlocale(LC_NUMERIC, nullptr);
  if (!std::setlocale(LC_NUMERIC, "de_DE.UTF-8")) GTEST_SKIP() << "no locale with a decimal comma";
  const auto video = read<CVideo>(R"(<video duration="1.5"/>)");
  const std::string text = written(*video);
  std::setlocale(LC_NUMERIC, before.c_str());
  EXPECT_EQ(video->duration, 1.5);
  EXPECT_NE(text.find(R"(duration="1.5")"), std::string::npos) << text;
}

TEST(Element, WritesNumbersWithSixDigits) {
  CAudio audio;
  audio.duration = 5400.1234;
  audio.startTime = 1234567.0;
  EXPECT_EQ(written(audio), R"(<audio duration="5400.12" starttime="1.23457e+06" src="" />)");
}

TEST(Element, ReadsTheNumberThatATextStartsWith) {
  EXPECT_EQ(read<CAudio>(R"(<audio duration=" +2.5s"/>)")->duration, 2.5);
  EXPECT_EQ(read<CAudio>(R"(<audio duration="1e999"/>)")->duration, 0);
  EXPECT_EQ(read<CRect>(R"(<r x="99999999999" y="12.9"/>)")->x, 0);
  EXPECT_EQ(read<CRect>(R"(<r x="99999999999" y="12.9"/>)")->y, 12);
}

}  // namespace

}  // namespace vantra::infilexml
