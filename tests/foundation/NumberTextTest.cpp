#include "foundation/NumberText.h"
#include "tests/foundation/TextOf.h"
#include "tests/support/DecimalComma.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>

namespace orlo {
namespace {

TEST(ParseDouble, ReadsNumbersInEveryForm) {
  EXPECT_EQ(parseDouble("1.5"), 1.5);
  EXPECT_EQ(parseDouble("-2"), -2.0);
  EXPECT_EQ(parseDouble("+.5"), 0.5);
  EXPECT_EQ(parseDouble("3."), 3.0);
  EXPECT_EQ(parseDouble("1e3"), 1000.0);
  EXPECT_EQ(parseDouble("25E-2"), 0.25);
  EXPECT_EQ(parseDouble(u"1.5"), 1.5);
  EXPECT_EQ(parseDouble(L"1.5"), 1.5);
}

TEST(ParseDouble, ReadsZeroHoweverItIsWritten) {
  for (const char* text : {"0", "0.0", "+0", "000.", ".0", "0e5", "0E-5", "0d1", "0D+1", "1e-999"})
    EXPECT_EQ(parseDouble(text), 0.0) << text;
  EXPECT_TRUE(std::signbit(parseDouble("-0")));
}

TEST(ParseDouble, RefusesAZeroThatIsNotWrittenAsOne) {
  for (const char* text : {"", "abc", ".", "+", "-", "e5", "0e", "0e+", "0x", "0 ", " 0", "0abc", "0.0.0", "--0"})
    EXPECT_THROW(parseDouble(text), CParseError) << text;
  EXPECT_THROW(parseDouble(String(nullptr)), CParseError);
  try {
    parseDouble("abc");
  } catch (const CParseError& error) {
    EXPECT_EQ(messageOf(error), "Error parsing floating point value.");
    EXPECT_EQ(titleOf(error), "Parse error");
  }
}

TEST(ParseDouble, TakesANumberOtherThanZeroWhateverFollows) {
  EXPECT_EQ(parseDouble("1.5mm"), 1.5);
  EXPECT_EQ(parseDouble(" 2"), 2.0);
}

TEST(ParseDouble, IsInfiniteForANumberThatIsTooLarge) {
  EXPECT_EQ(parseDouble("1e999"), HUGE_VAL);
  EXPECT_EQ(parseDouble("-1e999"), -HUGE_VAL);
}

TEST(ParseDouble, ReadsAPointUnderALocaleWithADecimalComma) {
  const CDecimalComma locale;
  ASSERT_TRUE(locale.IsOk());
  EXPECT_EQ(parseDouble("1.5"), 1.5);
  EXPECT_EQ(parseDouble("-0.25"), -0.25);
  EXPECT_EQ(parseDouble("0.0"), 0.0);
  EXPECT_EQ(parseDouble("1.5e-3"), 0.0015);
}

TEST(ParseDouble, ReadsTheDecimalCommaOfTheLocale) {
  EXPECT_EQ(parseDouble("1,5"), 1.0);
  EXPECT_THROW(parseDouble("0,5"), CParseError);
  const CDecimalComma locale;
  ASSERT_TRUE(locale.IsOk());
  EXPECT_EQ(parseDouble("1,5"), 1.5);
  EXPECT_EQ(parseDouble(u"-0,25"), -0.25);
  EXPECT_EQ(parseDouble("0,0"), 0.0);
  EXPECT_THROW(parseDouble("0.0,0"), CParseError);
}

// The runtime writes and reads numbers with "-" and "+" in every locale, whatever signs the locale has for money.
TEST(ParseDouble, KnowsTheSignsThatTheRuntimeReads) {
  const CDecimalComma locale;
  ASSERT_TRUE(locale.IsOk());
  ASSERT_EQ(std::string(std::localeconv()->negative_sign), "m");
  ASSERT_EQ(std::atof("-1,5"), -1.5);
  ASSERT_EQ(std::atof("m1,5"), 0);
  EXPECT_EQ(parseDouble("-1.5"), -1.5);
  EXPECT_EQ(parseDouble("+1.5e+2"), 150.0);
  EXPECT_EQ(parseDouble("-0e-1"), 0.0);
  EXPECT_THROW(parseDouble("m1.5"), CParseError);
  EXPECT_THROW(parseDouble("p0"), CParseError);
}

TEST(ParseDouble, TakesNoNumberFromForeignCharacters) {
  EXPECT_THROW(parseDouble(u8"é1"), CParseError);
  EXPECT_THROW(parseDouble(u8"１"), CParseError);
  EXPECT_THROW(parseDouble(u8"0é"), CParseError);
  EXPECT_EQ(parseDouble(u8"1é5"), 1.0);
  EXPECT_THROW(parseDouble(fromUTF8(std::string_view("0\0", 2))), CParseError);
}

TEST(DoubleToString, HasSixDigits) {
  EXPECT_EQ(textOf(doubleToString(0.1)), "0.1");
  EXPECT_EQ(textOf(doubleToString(-1234567.0)), "-1.23457e+06");
  EXPECT_EQ(textOf(doubleToString(1.0 / 3.0)), "0.333333");
  EXPECT_EQ(textOf(doubleToString(-0.0)), "-0");
  EXPECT_EQ(textOf(doubleToString(HUGE_VAL)), "inf");
}

TEST(DoubleToString, IsReadAgainUnderALocaleWithADecimalComma) {
  const CDecimalComma locale;
  ASSERT_TRUE(locale.IsOk());
  EXPECT_EQ(textOf(doubleToString(-1.5)), "-1,5");
  EXPECT_EQ(parseDouble(doubleToString(-1.5)), -1.5);
}

TEST(IntToString, WritesEveryNumber) {
  EXPECT_EQ(textOf(intToString(0)), "0");
  EXPECT_EQ(textOf(intToString(std::numeric_limits<std::int32_t>::min())), "-2147483648");
  EXPECT_EQ(textOf(int64ToString(std::numeric_limits<std::int64_t>::min())), "-9223372036854775808");
  EXPECT_EQ(textOf(int64ToString(std::numeric_limits<std::int64_t>::max())), "9223372036854775807");
}

TEST(ParseInt, ReadsTheWholeText) {
  EXPECT_EQ(parseInt("12", 10), 12);
  EXPECT_EQ(parseInt("-12", 10), -12);
  EXPECT_EQ(parseInt("+12", 10), 12);
  EXPECT_EQ(parseInt("fF", 16), 255);
  EXPECT_EQ(parseInt("zZ", 36), 35 * 36 + 35);
  EXPECT_EQ(parseInt("-101", 2), -5);
  EXPECT_EQ(parseInt(u"0042"), 42);
  EXPECT_EQ(parseInt(String(L"42")), 42);
  EXPECT_EQ(parseInt(""), 0);
  EXPECT_EQ(parseInt64("-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
}

TEST(ParseInt, RefusesWhatIsNoNumberAsAWhole) {
  for (const char* text : {"12a", "a", " 1", "1 ", "-", "+", "--1", "+-1", "1-", "1.0", "0x10", "8\xB2"}) {
    EXPECT_THROW(parseInt(text, 10), CParseError) << text;
    EXPECT_THROW(parseInt64(text, 10), CParseError) << text;
  }
  EXPECT_THROW(parseInt(u8"１", 10), CParseError);
  EXPECT_THROW(parseInt("8", 8), CParseError);
  EXPECT_THROW(parseInt("g", 16), CParseError);
  for (const int base : {0, -1, std::numeric_limits<int>::min()}) EXPECT_THROW(parseInt("1", base), CParseError);
  try {
    parseInt("12a", 10);
    FAIL();
  } catch (const CParseError& error) {
    EXPECT_EQ(messageOf(error), "Error parsing integer.");
  }
}

TEST(ParseInt, WrapsWhatIsTooLarge) {
  EXPECT_EQ(parseInt("4294967301"), 5);
  EXPECT_EQ(parseInt("2147483648"), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(parseInt("-2147483649"), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(parseInt64("18446744073709551616"), 0);
  EXPECT_EQ(parseInt64("-9223372036854775809"), std::numeric_limits<std::int64_t>::max());
}

TEST(ParseUInt64, TakesNoSign) {
  EXPECT_EQ(parseUInt64("18446744073709551615"), std::numeric_limits<std::uint64_t>::max());
  EXPECT_EQ(parseUInt64(u"fF", 16), 255U);
  EXPECT_EQ(parseUInt64(""), 0U);
  for (const char* text : {"-1", "+1", "-", "1a", " 1"}) EXPECT_THROW(parseUInt64(text), CParseError) << text;
}

TEST(ParseIntPrefix, TellsHowManyCharactersItRead) {
  EXPECT_EQ(parseIntPrefix("12a", 10).value, 12U);
  EXPECT_EQ(parseIntPrefix("12a", 10).count, 2);
  EXPECT_EQ(parseIntPrefix(u"12a", 16).value, 0x12aU);
  EXPECT_EQ(parseIntPrefix("18446744073709551615").value, std::numeric_limits<std::uint64_t>::max());
  for (const char* text : {"", "a", "-1", "+1", " 1"}) {
    EXPECT_EQ(parseIntPrefix(text, 10).value, 0U) << text;
    EXPECT_EQ(parseIntPrefix(text, 10).count, 0) << text;
  }
}

}  // namespace
}  // namespace orlo
