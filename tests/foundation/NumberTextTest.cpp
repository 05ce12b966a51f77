#include "foundation/NumberText.h"
#include "tests/foundation/TextOf.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <unistd.h>

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

/// The numbers of a locale with a decimal comma, for a scope.
class CDecimalComma {
public:
  CDecimalComma() {
    char pattern[] = "/tmp/locale-XXXXXX";
    folder_ = mkdtemp(pattern);
    const std::string command = "localedef -i de_DE -f UTF-8 " + (folder_ / "de_DE.UTF-8").string();
    valid = std::system(command.c_str()) == 0;
    setenv("LOCPATH", folder_.c_str(), 1);
    valid = valid && std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
  }
  ~CDecimalComma() {
    std::setlocale(LC_ALL, "C");
    unsetenv("LOCPATH");
    std::filesystem::remove_all(folder_);
  }
  CDecimalComma(const CDecimalComma&) = delete;
  CDecimalComma& operator=(const CDecimalComma&) = delete;

  bool valid = false;

private:
  std::filesystem::path folder_;
};

TEST(ParseDouble, ReadsAPointUnderALocaleWithADecimalComma) {
  const CDecimalComma locale;
  ASSERT_TRUE(locale.valid);
  ASSERT_STREQ(std::localeconv()->decimal_point, ",");
  EXPECT_EQ(parseDouble("1.5"), 1.5);
  EXPECT_EQ(parseDouble("-0.25"), -0.25);
  EXPECT_EQ(parseDouble("0.0"), 0.0);
}

}  // namespace
}  // namespace orlo
