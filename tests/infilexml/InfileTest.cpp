#include "backend/infilexml/Audio.h"
#include "backend/infilexml/Infile.h"
#include "backend/infilexml/Shader.h"
#include "backend/infilexml/Video.h"
#include "foundation/Cast.h"
#include "tests/infilexml/Nodes.h"

#include <gtest/gtest.h>

namespace vantra::infilexml {

namespace {

orlo::P<CTrack> readTrack(const std::string& text) {
  return readInto(orlo::makeObject<CTrack>(0), text);
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
    EXPECT_EQ(stdText(error.getMessage()), "invalid element found in infile node");
  }
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

TEST(Infile, FindsItemsOfAudioTracksBehindThoseOfVideoTracks) {
  CInfile infile;
  const auto add = [](CTracklist& list, const orlo::P<CTrackItem>& item, const char* id) {
    item->SetId(id);
    list.AddTrack(orlo::makeObject<CTrack>(0));
    list.GetTrack(list.GetTrackCount() - 1)->item = item;
  };
  add(*infile.GetAudioTracklist(), orlo::makeObject<CAudio>(), "both");
  add(*infile.GetAudioTracklist(), orlo::makeObject<CAudio>(), "sound");
  EXPECT_EQ(infile.FindItemById("both"), infile.GetAudioTracklist()->GetTrack(0)->item);
  add(*infile.GetVideoTracklist(), orlo::makeObject<CShader>(), "both");
  EXPECT_EQ(infile.FindItemById("both"), infile.GetVideoTracklist()->GetTrack(0)->item);
  EXPECT_EQ(infile.FindItemById("sound"), infile.GetAudioTracklist()->GetTrack(1)->item);
}

TEST(Infile, CountsAudioTracksBehindVideoTracks) {
  CInfile infile;
  infile.GetAudioTracklist()->AddTrack(orlo::makeObject<CTrack>(1));
  infile.GetVideoTracklist()->AddTrack(orlo::makeObject<CTrack>(0));
  EXPECT_EQ(infile.GetTrackCount(), 2U);
  EXPECT_EQ(infile.GetTrack(0), infile.GetVideoTracklist()->GetTrack(0));
  EXPECT_EQ(infile.GetTrack(1), infile.GetAudioTracklist()->GetTrack(0));
}

TEST(Infile, PutsListsThatAreThereTwiceIntoOne) {
  const auto infile = FromText(R"(<infile><videotracklist duration="1"><track/></videotracklist>
      <videotracklist duration="2"><track/></videotracklist></infile>)");
  EXPECT_EQ(infile->GetVideoTracklist()->GetTrackCount(), 2U);
  EXPECT_EQ(infile->GetVideoTracklist()->GetDuration(), 2);
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
    EXPECT_EQ(refusalOf([&] { readTrack("<track><" + std::string(name) + "/></track>"); }), "unknown track item type")
        << name;
  }
}

TEST(Track, MakesEachKindOfItem) {
  for (const char* const name : {"video", "audio", "filter", "theme", "videotracklist", "loop", "shader"})
    EXPECT_EQ(stdText(readTrack("<track><" + std::string(name) + "/></track>")->item->GetElementName()), name);
}

}  // namespace

}  // namespace vantra::infilexml
