#include "tests/foundation_strings/TextSamples.h"

#include <gtest/gtest.h>

using namespace samples;

namespace {

const CStringPos kEnd = CStringPos::end();

TEST(StringSearch, TakesEveryKindOfArgument) {
  const std::uint32_t codePoints[] = {0xE9, 0};
  const unsigned char utf8[] = {0xC3, 0xA9, 0};
  const String text = u"caf\u00E9 \u20AC";
  const CStringPos expected{3, 6};
  EXPECT_EQ(text.find("\xE9"), expected);
  EXPECT_EQ(text.find(L"é"), expected);
  EXPECT_EQ(text.find(u"é"), expected);
  EXPECT_EQ(text.find(U"é"), expected);
  EXPECT_EQ(text.find(u8"é"), expected);
  EXPECT_EQ(text.find(utf8), expected);
  EXPECT_EQ(text.find(codePoints), expected);
  EXPECT_EQ(text.find(String(u8"é")), expected);
  EXPECT_EQ(text.find(*String("\xE9").getObject()), expected);
}

TEST(StringSearch, WorksOnTheObjectBehindTheHandleToo) {
  const P<IString> text = String("some text").getObject();
  EXPECT_EQ(text->find(u"te"), (CStringPos{5, 5}));
  EXPECT_TRUE(text->equalsIgnoreCase("SOME TEXT"));
  EXPECT_EQ(text->replace("some", u"any"), "any text");
}

TEST(StringSearch, EqualsAcrossEncodings) {
  EXPECT_TRUE(String("\xE9").equals(u8"é"));
  EXPECT_TRUE(String(u8"é").equals("\xE9"));
  EXPECT_FALSE(String("\xE9").equals(u8"è"));
}

TEST(StringSearch, IgnoresCaseAcrossEncodings) {
  EXPECT_EQ(String("ABC").compareIgnoreCase("abc"), 0);
  EXPECT_EQ(String("ABC").compareIgnoreCase(u8"abc"), 0);
  EXPECT_EQ(String(u"ABC").compareIgnoreCase(U"abc"), 0);
  EXPECT_EQ(String(u"ÀÉ").compareIgnoreCase("\xE0\xE9"), 0);
  EXPECT_EQ(String(u"ΑΒΓ").compareIgnoreCase(u8"αβγ"), 0);
  EXPECT_NE(String("ABC").compare("abc"), 0);
}

TEST(StringSearch, ComparesByLowerCaseWhenItIgnoresCase) {
  // "_" lies between the upper and the lower case letters.
  EXPECT_EQ(String("A").compare("_"), -1);
  EXPECT_EQ(String("A").compareIgnoreCase("_"), 1);
}

TEST(StringSearch, OrdersByCodePointNotByUnit) {
  // The surrogates of U+1F600 are less than U+FF5E.
  EXPECT_EQ(String(u"\U0001F600").compare(u"\uFF5E"), 1);
  EXPECT_EQ(String(u8"\uFF5E").compare(u"\U0001F600"), -1);
}

TEST(StringSearch, OrdersLatin1AsUnsigned) {
  EXPECT_EQ(String("\xE9").compare("z"), 1);
}

TEST(StringSearch, FindsTheFirstAndTheLastOccurrence) {
  const String text = u"one two one";
  EXPECT_EQ(text.find("one"), (CStringPos{0, 0}));
  EXPECT_EQ(text.find("one", text.positionAt(1)), (CStringPos{8, 16}));
  EXPECT_EQ(text.findLast("one"), (CStringPos{8, 16}));
  EXPECT_EQ(text.findLast("one", {}, text.positionAt(10)), (CStringPos{0, 0}));
  EXPECT_EQ(text.find("three"), kEnd);
  EXPECT_EQ(text.findLast("three"), kEnd);
  EXPECT_EQ(text.find("one", kEnd), kEnd);
}

TEST(StringSearch, FindsOverlappingOccurrences) {
  EXPECT_EQ(String("aaab").find("aab"), (CStringPos{1, 1}));
  EXPECT_EQ(String("abab abac").find("abac"), (CStringPos{5, 5}));
  EXPECT_EQ(String("aaaa").findLast("aa"), (CStringPos{2, 2}));
}

TEST(StringSearch, FindsAcrossStrayBytes) {
  const String text = bytes(
      "x\x80"
      "a\xFF"
      "b",
      getUTF8CharEncoding());
  EXPECT_EQ(text.find("ab"), (CStringPos{1, 2}));
  EXPECT_EQ(text.findLast("ab"), (CStringPos{1, 2}));
  EXPECT_EQ(text.findAnyOf("b"), (CStringPos{2, 4}));
}

TEST(StringSearch, FindsTheEmptyTextAtEveryCharacter) {
  EXPECT_EQ(String("ab").find(""), (CStringPos{0, 0}));
  EXPECT_EQ(String("ab").findLast(""), (CStringPos{1, 1}));
  EXPECT_EQ(String().find(""), kEnd);
  EXPECT_TRUE(String("ab").startsWith("") && String("ab").endsWith("") && String().startsWith(""));
}

TEST(StringSearch, TakesANullArgumentAsEmpty) {
  EXPECT_TRUE(String("a").startsWith(static_cast<const char*>(nullptr)));
  EXPECT_TRUE(String().equals(String(nullptr)));
  EXPECT_EQ(String("a").findAnyOf(static_cast<const wchar_t*>(nullptr)), kEnd);
  EXPECT_EQ(String("a").findNoneOf(String(nullptr)), (CStringPos{0, 0}));
}

TEST(StringSearch, SearchesForMoreCharactersThanABlockHolds) {
  const String many = U"abcdefghijklmnopqrstuvwxyzäöü";
  EXPECT_EQ(String(u"..ü").findAnyOf(many), (CStringPos{2, 4}));
  EXPECT_EQ(String(u"übermäßig").findNoneOf(many), (CStringPos{6, 12}));
  EXPECT_EQ((String(u"..") + many).find(many), (CStringPos{2, 4}));
}

TEST(StringReplace, GoesFromLeftToRightWithoutOverlap) {
  EXPECT_EQ(String("aaa").replace("aa", "b"), "ba");
  EXPECT_EQ(String("abab").replace("ab", "abab"), "abababab");
  EXPECT_EQ(String("Hello %NAME%, %name%").replaceIgnoreCase("%name%", u"X"), "Hello X, X");
  EXPECT_EQ(String("abc").replace("b", ""), "ac");
  EXPECT_EQ(String("abc").replace("", "x"), "abc");
  EXPECT_EQ(String("abc").replace("abc", ""), "");
  EXPECT_EQ(String().replace("a", "b"), "");
}

TEST(StringReplace, LeavesWhatIsNotBetweenThePositions) {
  const String text = u"a\u00E9a\u00E9A";
  EXPECT_EQ(text.replace("a", u"[a]", text.positionAt(1)), u"a\u00E9[a]\u00E9A");
  EXPECT_EQ(text.replaceIgnoreCase("a", "x", text.positionAt(2)), u"a\u00E9x\u00E9x");
  EXPECT_EQ(text.replace("a", "", {}, text.positionAt(2)), u"\u00E9a\u00E9A");
  EXPECT_EQ(text.replace(u"\u00E9a", "x", {}, text.positionAt(2)), text);
  EXPECT_EQ(text.replace("a", "x", CStringPos::end()), text);
}

TEST(StringReplace, LeavesOutWhatTheTextCannotHold) {
  EXPECT_EQ(String("a-b").replace("-", u"€"), "ab");
}

TEST(StringReplace, MakesANewTextThatIsNeverNull) {
  const String null(nullptr);
  EXPECT_FALSE(null.replace("a", "b").isNull());
  const String text = "abc";
  EXPECT_NE(text.replace("x", "y").getObject(), text.getObject());
}

}  // namespace
