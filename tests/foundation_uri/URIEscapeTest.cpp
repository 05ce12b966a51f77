#include "foundation/StringObject.h"
#include "foundation/URIEscape.h"
#include "tests/foundation/TextOf.h"

#include <gtest/gtest.h>

namespace orlo {
namespace {

TEST(URIEscape, WritesABlankAsItsByte) {
  EXPECT_EQ(textOf(uriEscape("a b", L"")), "a%20b");
  EXPECT_EQ(textOf(uriUnescape("a%20b")), "a b");
}

TEST(URIEscape, WritesTheBytesOfUTF8) {
  EXPECT_EQ(textOf(uriEscape(u"é€\U0001F3AC", L"")), "%C3%A9%E2%82%AC%F0%9F%8E%AC");
  EXPECT_EQ(uriUnescape("%C3%A9").length(), 1);
  EXPECT_TRUE(uriUnescape("%C3%A9%E2%82%AC%F0%9F%8E%AC") == u"é€\U0001F3AC");
  EXPECT_TRUE(uriUnescape("%e0%a4%85") == u"अ");
}

TEST(URIEscape, LeavesUnreservedAndAllowedCharacters) {
  EXPECT_EQ(textOf(uriEscape("azAZ09-_.!~*'()", nullptr)), "azAZ09-_.!~*'()");
  EXPECT_EQ(textOf(uriEscape(";/?", nullptr)), "%3B%2F%3F");
  EXPECT_EQ(textOf(uriEscape(";/?", L"/;")), ";/%3F");
  EXPECT_EQ(textOf(uriEscape(u"é%", L"é")), "é%25");
}

TEST(URIEscape, LeavesWhatIsNoEscape) {
  for (const char* text : {"%", "100%", "%2", "%zz", "%-1", "a%2%", "%%"}) EXPECT_EQ(textOf(uriUnescape(text)), text);
  EXPECT_EQ(textOf(uriUnescape("%%41")), "%A");
}

TEST(URIEscape, LeavesBytesThatAreNoCharacter) {
  for (const char* text : {"%FF", "%80", "%C3", "%C3%", "%C3x", "%E2%82", "%C0%AF", "%E0%80%AF", "%ED%A0%80",
                           "%F4%90%80%80", "%F5%80%80%80", "%C3%A"})
    EXPECT_EQ(textOf(uriUnescape(text)), text);
  EXPECT_EQ(textOf(uriUnescape("%E2%82%41")), "%E2%82A");
  EXPECT_EQ(textOf(uriUnescape("%C3%28")), "%C3(");
  EXPECT_EQ(textOf(uriUnescape("%C3%C3%A9")), "%C3é");
}

TEST(URIEscape, KeepsBytesThatAreNoCharacterAsEscapes) {
  EXPECT_EQ(textOf(uriEscape(fromUTF8("a\xFF\xC3"), L"")), "a%FF%C3");
}

TEST(URIEscape, KnowsZeros) {
  const String zero = fromUTF8(std::string_view("a\0b", 3));
  EXPECT_EQ(textOf(uriEscape(zero, L"")), "a%00b");
  EXPECT_TRUE(uriUnescape("a%00b") == zero);
}

TEST(URIEscape, KeepsNullTextsNull) {
  EXPECT_TRUE(uriEscape(nullptr, L"").isNull());
  EXPECT_TRUE(uriUnescape(nullptr).isNull());
  EXPECT_EQ(textOf(uriEscape("", L"")), "");
}

}  // namespace
}  // namespace orlo
