#include "foundation/Error.h"
#include "tests/foundation_strings/TextSamples.h"

#include <gtest/gtest.h>

using namespace samples;

namespace {

/// In a locale of many bytes a character and in one of a single byte.
class CodePage : public testing::TestWithParam<const char*> {
protected:
  CLocale locale_{GetParam()};
  String text_ = toCodePage("abca");
};

TEST_P(CodePage, CannotBeWalkedBackwards) {
  const ICharEncoding& encoding = *getCPCharEncoding();
  const unsigned char content[] = "abc";
  char32_t codePoint;
  int position;
  int count;
  EXPECT_FALSE(encoding.canWalkBackwards());
  EXPECT_THROW(encoding.findValidBackwards(content, 3, 3), CMethodNotImplementedError);
  EXPECT_THROW(encoding.decodeStrictBackwards(codePoint, content, 3, 3), CMethodNotImplementedError);
  EXPECT_THROW(encoding.decodeBackwards(codePoint, content, 3, 3), CMethodNotImplementedError);
  EXPECT_THROW(encoding.decodeRunBackwards(&codePoint, &position, 1, count, content, 3, 3), CMethodNotImplementedError);
}

TEST_P(CodePage, ThrowsAtEveryOperationThatWalksBackwards) {
  EXPECT_THROW(text_.findLast("a"), CMethodNotImplementedError);
  EXPECT_THROW(text_.findLastIgnoreCase(L"A"), CMethodNotImplementedError);
  EXPECT_THROW(text_.findLastAnyOf("a"), CMethodNotImplementedError);
  EXPECT_THROW(text_.findLastAnyOfIgnoreCase("a"), CMethodNotImplementedError);
  EXPECT_THROW(text_.findLastNoneOf("a"), CMethodNotImplementedError);
  EXPECT_THROW(text_.findLastNoneOfIgnoreCase("a"), CMethodNotImplementedError);
  EXPECT_THROW(text_.advance(CStringPos::end(), -1), CMethodNotImplementedError);
  CStringPos pos = CStringPos::end();
  EXPECT_THROW(text_.previous(pos), CMethodNotImplementedError);
}

TEST_P(CodePage, ThrowsFromTheEmptyTextToo) {
  EXPECT_THROW(toCodePage("").findLast("a"), CMethodNotImplementedError);
  EXPECT_THROW(text_.findLast(""), CMethodNotImplementedError);
}

TEST_P(CodePage, NamesTheMethodThatIsMissing) {
  try {
    text_.findLast("a");
    FAIL();
  } catch (const CMethodNotImplementedError& error) {
    EXPECT_EQ(error.getMethod(), "decodeRunBackwards");
  }
}

TEST_P(CodePage, WorksForwards) {
  EXPECT_TRUE(text_.endsWith("CA") == false && text_.endsWith("ca") && text_.endsWithIgnoreCase("CA"));
  EXPECT_EQ(text_.find("ca"), (CStringPos{2, 2}));
  EXPECT_EQ(text_.replace("a", "xy"), "xybcxy");
  EXPECT_EQ(text_.toUpper(), "ABCA");
  EXPECT_EQ(text_.getEncodingId(), kCodePageTag);
}

TEST_P(CodePage, MayBeSearchedForBackwardsInAnotherText) {
  EXPECT_EQ(String("xabcabca").findLast(text_), (CStringPos{4, 4}));
}

INSTANTIATE_TEST_SUITE_P(Locale, CodePage, testing::Values("C.UTF-8", "C"), [](const auto& param) {
  return std::string(param.param) == "C" ? "SingleByte" : "MultiByte";
});

TEST(CodePageOfUTF8, HoldsEveryCharacter) {
  const CLocale locale("C.UTF-8");
  const String cp = toCodePage(textOf(U"aé€\U0001F600"));
  EXPECT_EQ(content(cp), "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
  EXPECT_EQ(cp.length(), 4);
  EXPECT_EQ(codePoints(cp), U"aé€\U0001F600");
}

TEST(CodePageOfUTF8, SkipsInvalidBytes) {
  const CLocale locale("C.UTF-8");
  EXPECT_EQ(codePoints(bytes("a\xFF"
                             "b\xC3",
                             getCPCharEncoding())),
            U"ab");
}

TEST(CodePageOfUTF8, ReadsNullCharacters) {
  const CLocale locale("C.UTF-8");
  EXPECT_EQ(codePoints(bytes(std::string("a\0b", 3), getCPCharEncoding())), std::u32string(U"a\0b", 3));
}

TEST(CodePageOfC, LeavesOutWhatTheLocaleDoesNotHave) {
  const CLocale locale("C");
  EXPECT_EQ(content(toCodePage(textOf(U"a€b\U0001F600"))), "ab");
  EXPECT_EQ(getCPCharEncoding()->getEncodedSize(U'€'), 0);
  EXPECT_EQ(getCPCharEncoding()->getMaxCharSize(), 1);
}

}  // namespace
