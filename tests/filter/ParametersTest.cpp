#include "filter/Parameters.h"
#include "tests/filter/PageTest.h"
#include "tests/support/DecimalComma.h"

#include <cstring>

namespace authfilter {
namespace {

class Parameters : public CPageTest {
protected:
  bool Set(const char* key, const char* value) { return SetParam(store, key, value); }
  std::string LastError() const {
    return {store.lastError.data(), strnlen(store.lastError.data(), store.lastError.size())};
  }
};

TEST_F(Parameters, CompareKeysWithCase) {
  EXPECT_FALSE(Set("Width", "100"));
  EXPECT_EQ(LastError(), "subtitlefilter unknown parameter Width");
}

TEST_F(Parameters, TakeNoalphaAsTrueForEveryNumberButZero) {
  for (const auto& [value, expected] :
       {std::pair{"0", false}, {"2", true}, {"-1", true}, {"true", false}, {"", false}, {" 7x", true}, {"x7", false}}) {
    EXPECT_TRUE(Set("noalpha", value));
    EXPECT_EQ(store.noAlpha, expected) << value;
  }
}

TEST_F(Parameters, GiveTheFrameRateAs64Bits) {
  EXPECT_TRUE(Set("frameratenum", "30000"));
  EXPECT_TRUE(Set("framerateden", "1001"));
  EXPECT_EQ(store.frameRateNum, std::int64_t{30000});
  EXPECT_EQ(store.frameRateDen, std::int64_t{1001});
  EXPECT_TRUE(Set("frameratenum", "-5"));
  EXPECT_EQ(store.frameRateNum, std::int64_t{-5});
}

TEST_F(Parameters, ReadNumbersAsFarAsTheyGo) {
  EXPECT_TRUE(Set("width", "  720px"));
  EXPECT_EQ(store.width, 720);
  EXPECT_TRUE(Set("width", "wide"));
  EXPECT_EQ(store.width, 0);
  EXPECT_TRUE(Set("width", "99999999999999999999"));
  EXPECT_GT(store.width, 0);
  EXPECT_TRUE(Set("duration", "12.5s"));
  EXPECT_DOUBLE_EQ(store.duration, 12.5);
}

TEST_F(Parameters, ReadADurationWithAPointWhateverTheLocale) {
  const CDecimalComma locale;
  ASSERT_TRUE(locale.IsOk());
  EXPECT_TRUE(Set("duration", "12.5"));
  EXPECT_DOUBLE_EQ(store.duration, 12.5);
}

TEST_F(Parameters, KeepTextsAsUtf8) {
  EXPECT_TRUE(Set("skinpath", "/skins/\xC3\xA4"));
  EXPECT_EQ(store.skinPath, wxString(L"/skins/ä"));
  EXPECT_TRUE(Set("basedirs.filter.uri", "file:///f"));
  EXPECT_TRUE(Set("basedirs.animation.uri", "file:///a"));
  EXPECT_TRUE(Set("basedirs.theme.uri", "file:///t"));
  EXPECT_EQ(store.filterBaseDir, "file:///f");
  EXPECT_EQ(store.animationBaseDir, "file:///a");
  EXPECT_EQ(store.themeBaseDir, "file:///t");
}

TEST_F(Parameters, RememberThatAStateWasSet) {
  EXPECT_FALSE(store.stateSet);
  EXPECT_TRUE(Set("state", "selected"));
  EXPECT_TRUE(store.stateSet);
  EXPECT_EQ(store.state, "selected");
}

TEST_F(Parameters, ReplaceEarlierValues) {
  EXPECT_TRUE(Set("state", "one"));
  EXPECT_TRUE(Set("state", "two"));
  EXPECT_EQ(store.state, "two");
}

TEST_F(Parameters, RefuseAnEmptyPage) {
  EXPECT_FALSE(Set("plugindata", ""));
  EXPECT_EQ(LastError(), "could not parse xml for parameter plugindata");
}

TEST_F(Parameters, RefuseAPageThatIsNoXml) {
  EXPECT_FALSE(Set("plugindata", "!!!! no base64 at all"));
  EXPECT_EQ(LastError(), "could not parse xml for parameter plugindata");
}

TEST_F(Parameters, DropTheFormerPageWhenTheNewOneIsRefused) {
  SetPage(Rectangle(0, 0, 10, 10, kRed));
  EXPECT_FALSE(Set("plugindata", "AAAA"));
  EXPECT_EQ(store.pluginData->GetRoot(), nullptr);
}

TEST_F(Parameters, NameTheLimitThatAPageReaches) {
  std::string xml;
  for (int depth = 0; depth < 300; ++depth) xml += "<a>";
  for (int depth = 0; depth < 300; ++depth) xml += "</a>";
  const auto bytes = std::span(reinterpret_cast<const std::uint8_t*>(xml.data()), xml.size());
  EXPECT_FALSE(Set("plugindata", graphics::EncodeBase64(bytes).c_str()));
  EXPECT_EQ(LastError(), "could not parse xml for parameter plugindata: line 1: elements nest more than 256 deep");
}

TEST_F(Parameters, CutALongMessageWithoutTerminatingIt) {
  const std::string key(600, 'k');
  EXPECT_FALSE(Set(key.c_str(), ""));
  const std::string expected = ("subtitlefilter unknown parameter " + key).substr(0, 512);
  EXPECT_EQ(std::string(store.lastError.data(), 512), expected);
}

TEST_F(Parameters, KeepTheLastErrorOnSuccess) {
  EXPECT_FALSE(Set("nothing", "1"));
  EXPECT_TRUE(Set("width", "1"));
  EXPECT_EQ(LastError(), "subtitlefilter unknown parameter nothing");
}

TEST_F(Parameters, SurviveNullTexts) {
  EXPECT_FALSE(Set(nullptr, "1"));
  EXPECT_TRUE(Set("width", nullptr));
  EXPECT_EQ(store.width, 0);
  EXPECT_FALSE(Set("plugindata", nullptr));
}

}  // namespace
}  // namespace authfilter
