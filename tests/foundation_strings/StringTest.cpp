#include "foundation/String.h"
#include "tests/foundation_strings/TextSamples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <thread>

using namespace samples;

namespace {

static_assert(sizeof(String) == sizeof(void*));

TEST(String, IsEmptyAndNotNullByDefault) {
  const String empty;
  EXPECT_TRUE(empty.isEmpty());
  EXPECT_FALSE(empty.isNull());
  EXPECT_EQ(empty.length(), 0);
  EXPECT_EQ(empty.getObject(), String().getObject());
}

TEST(String, IsNullAndEmptyWithoutAValue) {
  for (const String& null :
       {String(nullptr), String(static_cast<const char*>(nullptr)), String(static_cast<const wchar_t*>(nullptr)),
        String(static_cast<const char16_t*>(nullptr)), String(static_cast<const char8_t*>(nullptr)),
        String(static_cast<const char32_t*>(nullptr)), String(P<IString>())}) {
    EXPECT_TRUE(null.isNull());
    EXPECT_TRUE(null.isEmpty());
    EXPECT_TRUE(null.isTerminated());
    EXPECT_EQ(null, "");
    EXPECT_NE(null.getObject(), nullptr);
  }
}

TEST(String, SharesOneNullStringPerClass) {
  EXPECT_EQ(String(nullptr).getObject(), String(static_cast<const char*>(nullptr)).getObject());
  EXPECT_EQ(String(nullptr).getObject(), String(P<IString>()).getObject());
  const char16_t* none = nullptr;
  EXPECT_EQ(String(none).getObject(), String(none).getObject());
  EXPECT_EQ(String(none).getEncodingId(), kUTF16Tag);
}

TEST(String, ReadsNarrowLiteralsAsLatin1) {
  const String text = "\xE9t\xE9";
  EXPECT_EQ(text.getEncodingId(), kLatin1Tag);
  EXPECT_EQ(codePoints(text), U"été");
}

TEST(String, ReadsWideLiteralsInTheWidthOfTheirCharacters) {
  EXPECT_EQ(String(L"é€").getEncodingId(), sizeof(wchar_t) == 2 ? kUTF16Tag : kUTF32Tag);
  EXPECT_EQ(String(u"é€").getEncodingId(), kUTF16Tag);
  EXPECT_EQ(String(U"é€").getEncodingId(), kUTF32Tag);
  EXPECT_EQ(String(u8"é€").getEncodingId(), kUTF8Tag);
  for (const String& text : {String(L"é€"), String(u"é€"), String(U"é€"), String(u8"é€")}) {
    EXPECT_EQ(codePoints(text), U"é€");
    EXPECT_EQ(text.length(), 2);
  }
}

TEST(String, RefersToLiteralsWithoutCopying) {
  static const char narrow[] = "narrow";
  static const wchar_t wide[] = L"wide";
  EXPECT_EQ(String(narrow).getData(), narrow);
  EXPECT_EQ(String(wide).getData(), wide);
  EXPECT_TRUE(String(narrow).isTerminated());
}

TEST(String, SharesItsTextWithACopy) {
  const String text = "text";
  const String copy = text;
  EXPECT_EQ(copy.getObject(), text.getObject());
}

TEST(String, IsNeverWithoutATextWhenItWasMoved) {
  String from = "from";
  const String to = std::move(from);
  EXPECT_NE(from.getObject(), nullptr);
  String again = "again";
  from = std::move(again);
  EXPECT_NE(again.getObject(), nullptr);
  EXPECT_EQ(from, "again");
  EXPECT_EQ(to, "from");
}

TEST(String, KeepsItsTextWhenAssignedToItself) {
  String text = toUTF8(U"text€");
  const String& same = text;
  text = same;
  EXPECT_EQ(text, u"text€");
}

TEST(String, AppendsInTheEncodingOfTheLeftSide) {
  EXPECT_EQ((String("a") + L"b").getEncodingId(), kLatin1Tag);
  EXPECT_EQ((String(u"a") + "b").getEncodingId(), kUTF16Tag);
  EXPECT_EQ(("a" + String(u"b")).getEncodingId(), kLatin1Tag);
  EXPECT_EQ((L"a" + String("b")).getEncodingId(), String(L"").getEncodingId());
  EXPECT_EQ(String(u"a€") + "\xE9" + L"b€" + String(U"c"), u"a€éb€c");
}

TEST(String, LeavesOutWhatTheLeftSideCannotHold) {
  EXPECT_EQ(String("a") + u"€é", u"aé");
}

TEST(String, RebindsTheHandleWhenItAppends) {
  String text = "a";
  const String before = text;
  text += "b";
  text += L"c";
  text += String(u"d");
  EXPECT_EQ(text, "abcd");
  EXPECT_EQ(before, "a");
}

TEST(String, AppendsItself) {
  String text = "ab";
  text += text;
  EXPECT_EQ(text, "abab");
}

TEST(String, HoldsEverythingThatIsAppendedToAnEmptyOrANullString) {
  const String all = textOf({U'a', 0xE9, 0x905, 0x20AC, 0xD800, 0x1F600, 0x10FFFF});
  EXPECT_EQ(String() + all, all);
  EXPECT_EQ(String(nullptr) + all, all);
  EXPECT_EQ(String(static_cast<const char*>(nullptr)) + all, all);
  EXPECT_EQ(String(P<IString>()) + all, all);
  EXPECT_FALSE((String(nullptr) + "").isNull());
}

TEST(String, DropsInvalidBytesWhenItAppendsSoThatTheyMakeNoCharacters) {
  const String joined = bytes("a\xE2", getUTF8CharEncoding()) + bytes(
                                                                    "\x82\xAC"
                                                                    "b",
                                                                    getUTF8CharEncoding());
  EXPECT_EQ(joined.length(), 2);
  EXPECT_EQ(joined, "ab");
}

TEST(String, ComparesWithLiteralsOnEitherSide) {
  const String text = u8"é";
  EXPECT_TRUE(text == "\xE9");
  EXPECT_TRUE("\xE9" == text);
  EXPECT_TRUE(text == L"é");
  EXPECT_TRUE(text != "e");
  EXPECT_TRUE(text > "e");
  EXPECT_TRUE("e" < text);
  EXPECT_TRUE(text >= u"é" && text <= U"é");
}

TEST(String, IsAKeyOfAMapWhateverItsEncoding) {
  std::map<String, int> numbers;
  numbers["\xE9"] = 1;
  numbers[u8"é"] = 2;
  numbers[L"e"] = 3;
  ASSERT_EQ(numbers.size(), 2u);
  EXPECT_EQ(numbers[U"é"], 2);
  EXPECT_EQ(numbers.begin()->second, 3);
}

TEST(String, CopiesTextInUTF8) {
  std::string source = "a\xE2\x82\xAC";
  const String text = fromUTF8(source);
  source = "gone";
  EXPECT_EQ(text, u"a€");
  EXPECT_TRUE(text.isTerminated());
  EXPECT_EQ(toStdString(text), "a\xE2\x82\xAC");
  EXPECT_EQ(toStdString(u"\U0001F600€"), "\xF0\x9F\x98\x80\xE2\x82\xAC");
  EXPECT_TRUE(fromUTF8({}).isEmpty());
  EXPECT_EQ(fromUTF8(std::string_view("a\0b", 3)).length(), 3);
}

TEST(String, MayBeSharedAndFirstUsedByManyThreads) {
  const String shared = u"shared é";
  std::vector<std::thread> threads;
  std::vector<String> results(4);
  for (String& result : results)
    threads.emplace_back([&shared, &result] {
      for (int i = 0; i < 1000; ++i) {
        const String copy = shared;
        result = copy + "!" + String(nullptr) + String();
        if (!copy.equals(toUTF8(copy)) || toLatin1(copy).find("\xE9").isEnd()) result = nullptr;
      }
    });
  for (std::thread& thread : threads) thread.join();
  for (const String& result : results) EXPECT_EQ(result, u"shared é!");
}

}  // namespace
