#include "foundation/Cast.h"
#include "tests/foundation_strings/TextSamples.h"

#include <gtest/gtest.h>

using namespace samples;

namespace {

class Conversion : public testing::TestWithParam<CForm> {
protected:
  String convert(const String& text) const { return GetParam().convert(text); }
  std::uint32_t id() const { return (*GetParam().encoding)()->getId(); }
  CLocale locale_;
};

TEST_P(Conversion, GivesTheSameObjectIfItIsTheFormAlready) {
  const String text = convert("text");
  EXPECT_EQ(convert(text).getObject(), text.getObject());
}

TEST_P(Conversion, TerminatesACopyOfWhatIsNotTerminated) {
  static const char source[] = "text\0\0\0rest\0\0\0";
  const P<ICharEncoding> encoding = (*GetParam().encoding)();
  const int size = 4 * encoding->getEncodedSize('t');
  const std::string unterminated = content(convert("text")) + "xxxx";
  const String text =
      P<IString>(makeObject<CString>(unterminated.data(), size, CString::Storage::reference, false, encoding));
  ASSERT_FALSE(text.isTerminated());
  const String result = convert(text);
  EXPECT_TRUE(result.isTerminated());
  EXPECT_NE(result.getObject(), text.getObject());
  EXPECT_EQ(result, source);
  EXPECT_EQ(encoding->measureTerminated(result.getData()), size);
}

TEST_P(Conversion, GivesItsNullStringForANullString) {
  for (const CForm& form : forms()) {
    const String result = convert(form.convert(nullptr));
    EXPECT_TRUE(result.isNull());
    EXPECT_EQ(result.getEncodingId(), id());
    EXPECT_EQ(result.getObject(), convert(nullptr).getObject());
  }
}

TEST_P(Conversion, GivesAnEmptyTextForAnEmptyText) {
  const String result = convert(String());
  EXPECT_TRUE(result.isEmpty());
  EXPECT_FALSE(result.isNull());
  EXPECT_EQ(result.getEncodingId(), id());
}

TEST_P(Conversion, KeepsTheTextFromEveryForm) {
  for (const CForm& form : forms()) {
    const String result = convert(form.convert(textOf(U"a é ÿ")));
    EXPECT_EQ(result.getEncodingId(), id());
    EXPECT_TRUE(result.isTerminated());
    EXPECT_EQ(codePoints(result), U"a é ÿ") << form.name;
    EXPECT_EQ(result.getEncoding()->measureTerminated(result.getData()), result.getByteSize());
  }
}

TEST_P(Conversion, LeavesInvalidBytesOut) {
  if (id() == kUTF8Tag) return;
  EXPECT_EQ(codePoints(convert(bytes("a\xFF"
                                     "b\xC3",
                                     getUTF8CharEncoding()))),
            U"ab");
}

INSTANTIATE_TEST_SUITE_P(To, Conversion, testing::ValuesIn(forms()),
                         [](const auto& param) { return param.param.name; });

TEST(Conversions, MakeTheClassOfTheirEncoding) {
  EXPECT_TRUE(tryCast<CWCharString>(toWide("a").getObject()));
  EXPECT_TRUE(tryCast<CUTF8String>(toUTF8("a").getObject()));
  EXPECT_TRUE(tryCast<CLatin1String>(toLatin1(u"a").getObject()));
  EXPECT_TRUE(tryCast<CUTF32String>(toUTF32("a").getObject()));
  EXPECT_TRUE(tryCast<CCPString>(toCodePage("a").getObject()));
}

TEST(Conversions, LeaveOutWhatTheTargetCannotHold) {
  EXPECT_EQ(content(toLatin1(U"a€é\U0001F600")), "a\xE9");
}

TEST(Conversions, KeepSurrogatesBetweenTheUnicodeForms) {
  const String lone = textOf({U'a', 0xD83D, U'b'});
  EXPECT_EQ(codePoints(toUTF32(toWide(toUTF8(lone)))), (std::u32string{U'a', 0xD83D, U'b'}));
}

TEST(Conversions, GiveWCharTextInTheWidthOfWChar) {
  const String text = toWChar("wide");
  EXPECT_STREQ(static_cast<const wchar_t*>(text.getData()), L"wide");
  const String wide = L"wide";
  EXPECT_EQ(toWChar(wide).getObject(), wide.getObject());
}

TEST(Conversions, CanBeReadAsTheirCharactersAre) {
  EXPECT_EQ(std::u16string(static_cast<const char16_t*>(toWide("wide").getData())), u"wide");
  EXPECT_EQ(std::u32string(static_cast<const char32_t*>(toUTF32("wide").getData())), U"wide");
  EXPECT_STREQ(static_cast<const char*>(toUTF8(u"é").getData()), "\xC3\xA9");
}

}  // namespace
