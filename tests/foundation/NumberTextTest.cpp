#include "foundation/NumberText.h"
#include "tests/foundation/TextOf.h"
#include "tests/support/DecimalComma.h"

#include <gtest/gtest.h>

#include <cmath>

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
  EXPECT_THROW(parseDouble(nullptr), CParseError);
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
}

}  // namespace
}  // namespace orlo
