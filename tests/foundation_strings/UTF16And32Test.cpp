#include "tests/foundation_strings/TextSamples.h"

#include <gtest/gtest.h>

using namespace samples;

namespace {

template <class Unit>
std::string units(std::initializer_list<Unit> list) {
  return {reinterpret_cast<const char*>(list.begin()), list.size() * sizeof(Unit)};
}

std::u32string readForwards(const P<ICharEncoding>& encoding, const std::string& content) {
  return codePoints(bytes(content, encoding));
}

std::u32string readBackwards(const P<ICharEncoding>& encoding, const std::string& content) {
  std::u32string result;
  const String whole = bytes(content, encoding);
  CStringPos pos = CStringPos::end();
  while (const auto codePoint = whole.previous(pos)) result.insert(result.begin(), *codePoint);
  return result;
}

void expectReads(const P<ICharEncoding>& encoding, const std::string& content, const std::u32string& expected) {
  EXPECT_EQ(readForwards(encoding, content), expected);
  EXPECT_EQ(readBackwards(encoding, content), expected);
}

TEST(UTF16, ReadsASurrogatePairAsOneCharacter) {
  expectReads(getUTF16CharEncoding(), units<char16_t>({'a', 0xD83D, 0xDE00, 'b'}), U"a\U0001F600b");
  expectReads(getUTF16CharEncoding(), units<char16_t>({0xD800, 0xDC00}), U"\U00010000");
  expectReads(getUTF16CharEncoding(), units<char16_t>({0xDBFF, 0xDFFF}), U"\U0010FFFF");
}

TEST(UTF16, LetsALoneSurrogatePass) {
  expectReads(getUTF16CharEncoding(), units<char16_t>({0xD83D}), {0xD83D});
  expectReads(getUTF16CharEncoding(), units<char16_t>({0xDE00}), {0xDE00});
  expectReads(getUTF16CharEncoding(), units<char16_t>({0xD83D, 'x'}), {0xD83D, 'x'});
  expectReads(getUTF16CharEncoding(), units<char16_t>({0xDE00, 0xD83D}), {0xDE00, 0xD83D});
}

TEST(UTF16, PairsAHighSurrogateWithTheLowOneBehindIt) {
  expectReads(getUTF16CharEncoding(), units<char16_t>({0xD83D, 0xD83D, 0xDE00}), {0xD83D, 0x1F600});
  expectReads(getUTF16CharEncoding(), units<char16_t>({0xD83D, 0xDE00, 0xDE00}), {0x1F600, 0xDE00});
}

TEST(UTF16, DoesNotSeeAnOddByteAtTheEnd) {
  expectReads(getUTF16CharEncoding(), units<char16_t>({'a', 'b'}) + "c", U"ab");
  expectReads(getUTF16CharEncoding(), "c", U"");
}

TEST(UTF16, HasNoCharactersAtOddPositions) {
  const std::string content = units<char16_t>({'a', 'b'});
  char32_t codePoint;
  EXPECT_EQ(getUTF16CharEncoding()->decodeStrict(codePoint, raw(content), 4, 1), -1);
  EXPECT_EQ(getUTF16CharEncoding()->findValid(raw(content), 4, 1), 2);
  EXPECT_EQ(getUTF16CharEncoding()->decodeStrictBackwards(codePoint, raw(content), 4, 3), -1);
  EXPECT_EQ(getUTF16CharEncoding()->findValidBackwards(raw(content), 4, 3), 2);
}

TEST(UTF16, WritesTwoUnitsAboveTheFirstPlane) {
  EXPECT_EQ(content(toWide(textOf(U"\U0001F600"))), units<char16_t>({0xD83D, 0xDE00}));
  EXPECT_EQ(getUTF16CharEncoding()->getEncodedSize(0xFFFF), 2);
  EXPECT_EQ(getUTF16CharEncoding()->getEncodedSize(0x10000), 4);
  EXPECT_EQ(getUTF16CharEncoding()->getEncodedSize(0x10FFFF), 4);
}

TEST(UTF32, DoesNotSeeValuesBehindTheLastCodePoint) {
  expectReads(getUTF32CharEncoding(), units<char32_t>({'a', 0x110000, 'b', 0xFFFFFFFF, 0x00410000, 'c'}), U"abc");
  expectReads(getUTF32CharEncoding(), units<char32_t>({0x10FFFF}), U"\U0010FFFF");
}

TEST(UTF32, LetsSurrogatesPass) {
  expectReads(getUTF32CharEncoding(), units<char32_t>({0xD83D, 0xDE00}), {0xD83D, 0xDE00});
}

TEST(UTF32, DoesNotSeeATruncatedTail) {
  expectReads(getUTF32CharEncoding(), units<char32_t>({'a'}) + "bcd", U"a");
}

}  // namespace
