#include "foundation/Error.h"
#include "foundation/StringObject.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstring>
#include <latch>
#include <string>
#include <thread>

namespace orlo {
namespace {

String inCodePage(const char* text, int byteSize, bool terminated) {
  return P<IString>(makeObject<CCPString>(text, CString::Storage::reference, byteSize, terminated));
}

TEST(What, IsTheBufferOfAMessageInTheCodePage) {
  const CError error(inCodePage("text", -1, true));
  EXPECT_EQ(error.what(), error.getMessage().getData());
  EXPECT_STREQ(error.what(), "text");
}

TEST(What, IsATerminatedCopyIfTheMessageIsNotTerminated) {
  const CError error(inCodePage("text and more", 4, false));
  EXPECT_NE(error.what(), error.getMessage().getData());
  EXPECT_STREQ(error.what(), "text");
}

TEST(What, IsConvertedToTheCodePageFromAnyEncoding) {
  const std::string before = std::setlocale(LC_CTYPE, nullptr);
  ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
  EXPECT_STREQ(CError(u8"Menü 映画").what(), "Menü 映画");
  EXPECT_STREQ(CError(u"Menü").what(), "Menü");
  EXPECT_STREQ(CError(L"Menü").what(), "Menü");
  EXPECT_STREQ(CError("Men\xFC").what(), "Menü");
  std::setlocale(LC_CTYPE, before.c_str());
}

TEST(What, LeavesOutWhatTheCodePageDoesNotHave) {
  ASSERT_STREQ(std::setlocale(LC_CTYPE, nullptr), "C");
  EXPECT_STREQ(CError(u8"Men\u00FC 映").what(), "Men ");
}

TEST(What, MayUseTheBlockOfItsThreadAgain) {
  const CError longer(u8"a text of some length");
  const CError shorter(u8"short");
  const char* first = longer.what();
  EXPECT_STREQ(first, "a text of some length");
  const char* second = shorter.what();
  EXPECT_STREQ(second, "short");
  EXPECT_EQ(first, second);
}

TEST(What, GrowsTheBlockForALongerMessage) {
  const std::string longText(100000, 'x');
  EXPECT_STREQ(CError(u8"short").what(), "short");
  EXPECT_EQ(CError(fromUTF8(longText)).what(), longText);
}

TEST(What, StaysValidWhenAnotherThreadAsks) {
  const CError error(u8"mine");
  const char* mine = error.what();
  std::thread([] { EXPECT_STREQ(CError(u8"theirs").what(), "theirs"); }).join();
  EXPECT_STREQ(mine, "mine");
}

TEST(What, MayBeAskedOfOneErrorByManyThreads) {
  const CError error(u8"shared");
  std::latch start(3);
  const auto ask = [&] {
    start.arrive_and_wait();
    for (int round = 0; round < 200; ++round) EXPECT_STREQ(error.what(), "shared");
  };
  std::thread first(ask);
  std::thread second(ask);
  ask();
  first.join();
  second.join();
}

TEST(What, IsEmptyForAnEmptyMessage) {
  EXPECT_STREQ(CError("").what(), "");
}

}  // namespace
}  // namespace orlo
