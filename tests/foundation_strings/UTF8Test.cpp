#include "tests/foundation_strings/TextSamples.h"

#include <gtest/gtest.h>

using namespace samples;

namespace {

int decodeStrict(const std::string& content, char32_t& codePoint) {
  return getUTF8CharEncoding()->decodeStrict(codePoint, raw(content), static_cast<int>(content.size()), 0);
}

void expectValid(const std::string& content, char32_t expected) {
  char32_t codePoint = 0;
  EXPECT_EQ(decodeStrict(content, codePoint), static_cast<int>(content.size())) << testing::PrintToString(content);
  EXPECT_EQ(codePoint, expected) << testing::PrintToString(content);
}

void expectInvalid(const std::string& content) {
  char32_t codePoint = 0;
  EXPECT_EQ(decodeStrict(content, codePoint), -1) << testing::PrintToString(content);
}

TEST(UTF8, ReadsSequencesOfOneToFourBytes) {
  expectValid(std::string(1, '\0'), 0);
  expectValid("\x7F", 0x7F);
  expectValid("\xC2\x80", 0x80);
  expectValid("\xDF\xBF", 0x7FF);
  expectValid("\xE1\x80\x80", 0x1000);
  expectValid("\xE2\x82\xAC", U'€');
  expectValid("\xEF\xBF\xBF", 0xFFFF);
  expectValid("\xF1\x80\x80\x80", 0x40000);
  expectValid("\xF4\x8F\xBF\xBF", 0x10FFFF);
}

TEST(UTF8, RejectsALoneContinuationByte) {
  expectInvalid("\x80");
  expectInvalid("\xBF");
  expectInvalid("\x80\x80");
}

TEST(UTF8, RejectsALeadWithoutPayload) {
  expectInvalid("\xC0\x80");
  expectInvalid("\xC0\xBF");
  expectInvalid("\xE0\x80\x80");
  expectInvalid("\xE0\xA0\x80");
  expectInvalid("\xE0\xBF\xBF");
  expectInvalid("\xF0\x80\x80\x80");
  expectInvalid("\xF0\x9F\x98\x80");
  expectInvalid("\xF0\xBF\xBF\xBF");
}

TEST(UTF8, LetsALongerFormBehindALeadWithPayloadPass) {
  expectValid("\xC1\x80", 0x40);
  expectValid("\xC1\x81", 'A');
  expectValid("\xC1\xBF", 0x7F);
}

TEST(UTF8, LetsSurrogatesPass) {
  expectValid("\xED\xA0\x80", 0xD800);
  expectValid("\xED\xBF\xBF", 0xDFFF);
}

TEST(UTF8, RejectsWhatIsBehindTheLastCodePoint) {
  expectInvalid("\xF4\x90\x80\x80");
  expectInvalid("\xF5\x80\x80\x80");
  expectInvalid("\xF7\xBF\xBF\xBF");
}

TEST(UTF8, RejectsALeadOfFiveOrMoreBits) {
  expectInvalid("\xF8\x88\x80\x80\x80");
  expectInvalid("\xFB\xBF\xBF\xBF\xBF");
  expectInvalid("\xFC\x84\x80\x80\x80\x80");
  expectInvalid("\xFE\x80\x80\x80\x80\x80");
  expectInvalid("\xFF");
}

TEST(UTF8, RejectsATruncatedTail) {
  expectInvalid("\xC3");
  expectInvalid("\xE2");
  expectInvalid("\xE2\x82");
  expectInvalid("\xF4");
  expectInvalid("\xF4\x8F");
  expectInvalid("\xF4\x8F\xBF");
}

TEST(UTF8, RejectsASequenceThatABreaksOff) {
  expectInvalid(
      "\xC3"
      "a");
  expectInvalid(
      "\xE2\x82"
      "a");
  expectInvalid(
      "\xE2"
      "a\x82");
  expectInvalid(
      "\xF4\x8F\xBF"
      "a");
  expectInvalid("\xE2\xC3\xA9");
}

TEST(UTF8, TakesAsManyBytesAsTheCodePointNeeds) {
  const ICharEncoding& utf8 = *getUTF8CharEncoding();
  EXPECT_EQ(utf8.getEncodedSize(0), 1);
  EXPECT_EQ(utf8.getEncodedSize(0x7F), 1);
  EXPECT_EQ(utf8.getEncodedSize(0x80), 2);
  EXPECT_EQ(utf8.getEncodedSize(0x7FF), 2);
  EXPECT_EQ(utf8.getEncodedSize(0x800), 3);
  EXPECT_EQ(utf8.getEncodedSize(0xFFFF), 3);
  EXPECT_EQ(utf8.getEncodedSize(0x10000), 4);
  EXPECT_EQ(utf8.getEncodedSize(0x10FFFF), 4);
  EXPECT_EQ(utf8.getEncodedSize(0x110000), 0);
}

TEST(UTF8, SkipsInvalidBytesOneByOne) {
  const std::string content =
      "\xE2\x82"
      "a\x80\xC3\xA9\xFF";
  const ICharEncoding& utf8 = *getUTF8CharEncoding();
  const int size = static_cast<int>(content.size());
  char32_t codePoint = 0;
  EXPECT_EQ(utf8.findValid(raw(content), size, 0), 2);
  EXPECT_EQ(utf8.decode(codePoint, raw(content), size, 0), 3);
  EXPECT_EQ(codePoint, 'a');
  EXPECT_EQ(utf8.decode(codePoint, raw(content), size, 3), 6);
  EXPECT_EQ(codePoint, U'é');
  EXPECT_EQ(utf8.decode(codePoint, raw(content), size, 6), -1);
  EXPECT_EQ(utf8.countChars(raw(content), size, 0), 2);
}

TEST(UTF8, SkipsInvalidBytesBackwardsToo) {
  const std::string content =
      "\xFF\xE2\x82\xAC\x82"
      "a\xC3";
  const ICharEncoding& utf8 = *getUTF8CharEncoding();
  const int size = static_cast<int>(content.size());
  char32_t codePoint = 0;
  EXPECT_EQ(utf8.decodeStrictBackwards(codePoint, raw(content), size, size), -1);
  EXPECT_EQ(utf8.findValidBackwards(raw(content), size, size), 6);
  EXPECT_EQ(utf8.decodeBackwards(codePoint, raw(content), size, size), 5);
  EXPECT_EQ(codePoint, 'a');
  EXPECT_EQ(utf8.decodeStrictBackwards(codePoint, raw(content), size, 5), -1);
  EXPECT_EQ(utf8.decodeBackwards(codePoint, raw(content), size, 5), 1);
  EXPECT_EQ(codePoint, U'€');
  EXPECT_EQ(utf8.decodeBackwards(codePoint, raw(content), size, 1), -1);
}

TEST(UTF8, ReadsBackwardsOnlyWhatEndsAtThePosition) {
  const std::string content = "\xE2\x82\xAC";
  char32_t codePoint = 0;
  EXPECT_EQ(getUTF8CharEncoding()->decodeStrictBackwards(codePoint, raw(content), 3, 2), -1);
  EXPECT_EQ(getUTF8CharEncoding()->decodeStrictBackwards(codePoint, raw(content), 3, 3), 0);
}

}  // namespace
