#include "foundation/wxutil/WXString.h"

#include <gtest/gtest.h>

namespace wxutil {
namespace {

const wchar_t kMixed[] = L"Menü 映画 \U0001F3AC";

TEST(WXString, KeepsEveryCharacterOnTheWayToTheToolkit) {
  EXPECT_EQ(toWxString(orlo::String(kMixed)), wxString(kMixed));
  EXPECT_EQ(toWxString(orlo::String(u"Menü 映画 \U0001F3AC")), wxString(kMixed));
  EXPECT_EQ(toWxString(orlo::String(u8"Menü 映画")), wxString(L"Menü 映画"));
  EXPECT_EQ(toWxString(orlo::String("Men\xFC")), wxString(L"Menü"));
}

TEST(WXString, KeepsEveryCharacterOnTheWayBack) {
  const orlo::String text = fromWxString(wxString(kMixed));
  EXPECT_TRUE(text == orlo::String(kMixed));
  EXPECT_EQ(text.length(), 9);
  EXPECT_FALSE(text.isNull());
  EXPECT_TRUE(text.isTerminated());
}

TEST(WXString, IsACopyThatOutlivesTheToolkitsText) {
  orlo::String text;
  {
    wxString source(L"passing");
    text = fromWxString(source);
    source.Replace("passing", "gone");
  }
  EXPECT_TRUE(text == orlo::String("passing"));
}

TEST(WXString, IsEmptyForEmptyAndNullTexts) {
  EXPECT_TRUE(toWxString(orlo::String()).empty());
  EXPECT_TRUE(toWxString(orlo::String(nullptr)).empty());
  EXPECT_TRUE(fromWxString(wxString()).isEmpty());
  EXPECT_FALSE(fromWxString(wxString()).isNull());
}

TEST(WXString, KeepsACharacterZeroInside) {
  const wxString source(L"a\0b", 3);
  const orlo::String text = fromWxString(source);
  EXPECT_EQ(text.length(), 3);
  EXPECT_EQ(toWxString(text), source);
}

}  // namespace
}  // namespace wxutil
