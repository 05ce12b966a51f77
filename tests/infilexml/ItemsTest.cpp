#include "backend/infilexml/Audio.h"
#include "backend/infilexml/Filter.h"
#include "backend/infilexml/Infile.h"
#include "backend/infilexml/Loop.h"
#include "backend/infilexml/Shader.h"
#include "backend/infilexml/Theme.h"
#include "backend/infilexml/Video.h"
#include "tests/infilexml/Nodes.h"
#include "tests/support/DecimalComma.h"

#include <gtest/gtest.h>

namespace vantra::infilexml {

namespace {

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

TEST(Video, KeepsWhatNoAttributeNames) {
  const auto video = orlo::makeObject<CVideo>(4.0, 1.0);
  video->src = orlo::makeObject<orlo::CURI>("a.mp4");
  video->SetId("movie1");
  video->clippingRect = orlo::makeObject<CRect>(1, 2, 3, 4);
  video->rotation = 90;
  video->mirrorVertical = video->mirrorHorizontal = true;
  const std::string before = written(*video);
  EXPECT_EQ(written(*readInto(video, "<video/>")), before);
}

TEST(Video, WithAnEmptySourceAndIdWritesNeither) {
  EXPECT_EQ(written(*read<CVideo>(R"(<video src="" infile-id=""/>)")),
            R"(<video duration="0" starttime="0" rotation="0" mirrorvertical="0" mirrorhorizontal="0" />)");
}

TEST(Video, KeepsItsSourceForOneThatIsNoURI) {
  const auto video = read<CVideo>(R"(<video duration="3" src="abc://h:x/"/>)");
  EXPECT_FALSE(video->src);
  EXPECT_EQ(video->duration, 3);
  EXPECT_TRUE(FromText(R"(<infile><videotracklist><track><theme src="abc://h:x/"><movie src="abc://h:x/"/></theme>
      </track></videotracklist></infile>)"));
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
      R"(<movie src="" infile-id="" /></theme>)";
  const auto theme = read<CTheme>(text);
  ASSERT_EQ(theme->GetMovieCount(), 2U);
  EXPECT_EQ(stdText(theme->GetMovie(0)->infileId), "movie1");
  EXPECT_EQ(written(*theme), text);
}

TEST(Theme, WritesItsAttributesAlsoIfTheyAreEmpty) {
  EXPECT_EQ(written(CTheme()), R"(<theme duration="0" src="" />)");
}

TEST(Theme, PassesOverOtherChildren) {
  EXPECT_EQ(read<CTheme>("<theme><video/><Movie/><movie/></theme>")->GetMovieCount(), 1U);
}

TEST(Loop, RefusesUnknownItems) {
  EXPECT_EQ(refusalOf([] { read<CLoop>("<loop><movie/></loop>"); }), "unknown track item type");
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

TEST(Filter, WritesItsAttributesAlsoIfTheyAreEmpty) {
  EXPECT_EQ(written(*read<CFilter>("<filter><string/><uri/><integer/><float/><boolean/></filter>")),
            R"(<filter duration="0" src=""><string name="" value="" /><uri name="" value="" />)"
            R"(<integer name="" value="0" /><float name="" value="0" /><boolean name="" value="false" /></filter>)");
}

TEST(Filter, RefusesUnknownParameters) {
  EXPECT_EQ(refusalOf([] { read<CFilter>("<filter><double/></filter>"); }), "unknown filter param type");
}

TEST(BooleanParam, IsTrueForOneAndTrue) {
  for (const char* const text : {"true", "1"})
    EXPECT_EQ(written(*read<CBoolean>("<boolean name='a' value='" + std::string(text) + "'/>"), "boolean"),
              R"(<boolean name="a" value="true" />)");
  for (const char* const text : {"false", "0", "TRUE", "yes", ""})
    EXPECT_FALSE(read<CBoolean>("<boolean value='" + std::string(text) + "'/>")->value) << text;
}

TEST(BooleanParam, KeepsTheTextThatItWasReadFrom) {
  const auto param = read<CBool>("<bool name='a' value='1'/>");
  EXPECT_EQ(stdText(param->text), "1");
  EXPECT_TRUE(readInto(param, "<bool name='b'/>")->value);
  EXPECT_EQ(stdText(param->text), "1");
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
  const auto back = read<CShader>(text);
  EXPECT_EQ(written(*back), text);
  EXPECT_EQ(stdText(back->GetUri()), "wave.fx");
  ASSERT_EQ(back->GetParameterCount(), 2U);
  EXPECT_EQ(back->GetParameter(1), -3);
  EXPECT_EQ(read<CShader>("<shader><parameter><int value='1'/><float/></parameter></shader>")->GetParameterCount(), 1U);
}

TEST(Element, WritesAndReadsNumbersTheSameInEveryLocale) {
  const CDecimalComma comma;
  ASSERT_TRUE(comma.IsOk());
  const auto audio = read<CAudio>(R"(<audio duration="1.5"/>)");
  EXPECT_EQ(audio->duration, 1.5);
  EXPECT_EQ(written(*audio), R"(<audio duration="1.5" starttime="0" src="" />)");
}

TEST(Element, WritesNumbersWithSixDigits) {
  CAudio audio;
  audio.duration = 5400.1234;
  audio.startTime = 1234567.0;
  EXPECT_EQ(written(audio), R"(<audio duration="5400.12" starttime="1.23457e+06" src="" />)");
}

TEST(Element, TakesNoNumberThatIsNotFinite) {
  for (const char* const text : {"inf", "-inf", "infinity", "nan", "NAN(7)", "-nan"})
    EXPECT_EQ(read<CAudio>("<audio duration='" + std::string(text) + "'/>")->duration, 0) << text;
}

TEST(Element, ReadsTheNumberThatATextStartsWith) {
  EXPECT_EQ(read<CAudio>(R"(<audio duration=" +2.5s"/>)")->duration, 2.5);
  EXPECT_EQ(read<CAudio>(R"(<audio duration="1e999"/>)")->duration, 0);
  EXPECT_EQ(read<CRect>(R"(<r x="99999999999" y="12.9"/>)")->x, 0);
  EXPECT_EQ(read<CRect>(R"(<r x="99999999999" y="12.9"/>)")->y, 12);
}

}  // namespace

}  // namespace vantra::infilexml
