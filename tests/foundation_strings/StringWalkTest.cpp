#include "tests/foundation_strings/TextSamples.h"

#include <climits>
#include <gtest/gtest.h>

using namespace samples;

namespace {

const CStringPos kEnd = CStringPos::end();

/// "aé€b" in bytes of UTF-8 at 0, 1, 3 and 6, with a stray byte before the "b".
String strayed() {
  return bytes(
      "a\xC3\xA9\xE2\x82\xAC\xFF"
      "b",
      getUTF8CharEncoding());
}

TEST(StringWalk, FindsThePositionOfAnIndex) {
  const String text = strayed();
  EXPECT_EQ(text.positionAt(0), (CStringPos{0, 0}));
  EXPECT_EQ(text.positionAt(1), (CStringPos{1, 1}));
  EXPECT_EQ(text.positionAt(2), (CStringPos{2, 3}));
  EXPECT_EQ(text.positionAt(3), (CStringPos{3, 7}));
}

TEST(StringWalk, GivesTheEndForAnIndexOutOfRange) {
  for (const String& text : {strayed(), String("four"), String(u"four"), String()}) {
    EXPECT_EQ(text.positionAt(4), kEnd);
    EXPECT_EQ(text.positionAt(INT_MAX), kEnd);
    EXPECT_EQ(text.positionAt(-1), kEnd);
    EXPECT_EQ(text.positionAt(INT_MIN), kEnd);
  }
}

TEST(StringWalk, AdvancesAPositionInBothDirections) {
  const String text = strayed();
  const CStringPos second = text.positionAt(1);
  EXPECT_EQ(text.advance(second, 0), second);
  EXPECT_EQ(text.advance(second, 2), (CStringPos{3, 7}));
  EXPECT_EQ(text.advance(second, 3), kEnd);
  EXPECT_EQ(text.advance(second, 4), kEnd);
  EXPECT_EQ(text.advance(second, INT_MAX), kEnd);
  EXPECT_EQ(text.advance(second, -1), (CStringPos{0, 0}));
  EXPECT_EQ(text.advance(second, -2), kEnd);
  EXPECT_EQ(text.advance(second, INT_MIN), kEnd);
  EXPECT_EQ(text.advance(kEnd, -1), (CStringPos{3, 7}));
  EXPECT_EQ(text.advance(kEnd, -4), (CStringPos{0, 0}));
  EXPECT_EQ(text.advance(kEnd, 1), kEnd);
}

TEST(StringWalk, StepsForwardsToTheEnd) {
  const String text = strayed();
  CStringPos pos;
  EXPECT_EQ(text.next(pos), U'a');
  EXPECT_EQ(pos, (CStringPos{1, 1}));
  EXPECT_EQ(text.next(pos), U'é');
  EXPECT_EQ(text.next(pos), U'€');
  EXPECT_EQ(pos, (CStringPos{3, 7}));
  EXPECT_EQ(text.next(pos), U'b');
  EXPECT_EQ(pos, kEnd);
  EXPECT_EQ(text.next(pos), std::nullopt);
  EXPECT_EQ(pos, kEnd);
}

TEST(StringWalk, StepsBackwardsToTheStart) {
  const String text = strayed();
  CStringPos pos = kEnd;
  EXPECT_EQ(text.previous(pos), U'b');
  EXPECT_EQ(pos, (CStringPos{3, 7}));
  EXPECT_EQ(text.previous(pos), U'€');
  EXPECT_EQ(text.previous(pos), U'é');
  EXPECT_EQ(text.previous(pos), U'a');
  EXPECT_EQ(pos, (CStringPos{0, 0}));
  EXPECT_EQ(text.previous(pos), std::nullopt);
  EXPECT_EQ(pos, (CStringPos{0, 0}));
}

TEST(StringWalk, ReadsACharacterAtAnIndexOrAPosition) {
  const String text = strayed();
  EXPECT_EQ(text.charAt(2), U'€');
  EXPECT_EQ(text.charAt(3), U'b');
  EXPECT_EQ(text.charAt(4), std::nullopt);
  EXPECT_EQ(text.charAt(-1), std::nullopt);
  EXPECT_EQ(text.charAt(CStringPos{1, 1}), U'é');
  EXPECT_EQ(text.charAt(kEnd), std::nullopt);
}

TEST(StringWalk, ReadsNullCharactersLikeOthers) {
  const String text = textOf(std::u32string(U"a\0b", 3));
  EXPECT_EQ(text.length(), 3);
  EXPECT_EQ(text.charAt(1), U'\0');
  EXPECT_EQ(text.charAt(2), U'b');
}

TEST(StringWalk, SurvivesPositionsOfAnotherString) {
  for (const CForm& form : forms()) {
    const CLocale locale;
    const String text = form.convert("short");
    for (const CStringPos wrong :
         {CStringPos{3, 7}, CStringPos{900, 900}, CStringPos{1, -5}, CStringPos{-7, 2}, CStringPos{INT_MAX, INT_MAX}}) {
      CStringPos pos = wrong;
      text.next(pos);
      EXPECT_LE(pos.byteOffset, text.getByteSize());
      text.advance(wrong, 1);
      text.find("t", wrong, kEnd);
      text.find("t", {}, wrong);
      text.compare("t", wrong, {0, 0});
      text.endsWith("t", wrong, wrong);
      text.equals("t", {2, 2}, wrong);
      if (!text.getEncoding()->canWalkBackwards()) continue;
      pos = wrong;
      text.previous(pos);
      text.advance(wrong, -1);
      text.findLast("t", wrong, kEnd);
      text.findLastNoneOf("t", {}, wrong);
    }
  }
}

TEST(StringWalk, CrossesTheBlocksOfTheReader) {
  std::u32string source;
  for (char32_t i = 0; i < 100; ++i) source += 0xE0 + i % 0x20;
  for (const CForm& form : forms()) {
    const CLocale locale;
    const String text = form.convert(textOf(source));
    ASSERT_EQ(text.length(), 100);
    for (int index = 0; index < 100; index += 7) {
      const CStringPos pos = text.positionAt(index);
      EXPECT_EQ(pos.index, index);
      EXPECT_EQ(text.charAt(pos), source[static_cast<std::size_t>(index)]);
      EXPECT_EQ(text.advance(pos, 99 - index), text.positionAt(99));
    }
  }
}

TEST(StringWalk, DoesNotSeeAStrayByte) {
  const String text = bytes(
      "ab\xFF"
      "cd",
      getUTF8CharEncoding());
  EXPECT_EQ(text.length(), text.getByteSize() - 1);
  EXPECT_EQ(text.find("\xFF"), kEnd);
  EXPECT_EQ(text.find("bc"), (CStringPos{1, 1}));
  EXPECT_EQ(text.find("c"), (CStringPos{2, 3}));
  EXPECT_EQ(text.findLast("\xFF"), kEnd);
  EXPECT_EQ(text, "abcd");
}

}  // namespace
