#include "foundation/posix/ValueScanner.h"
#include "foundation/posix/ValueText.h"

#include <gmock/gmock.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

namespace orlo::posix {
namespace {

CStoredValue valueOf(const std::string& text) {
  CValueScanner scanner(text);
  CStoredValue value = scanner.takeValue();
  EXPECT_TRUE(scanner.atEnd()) << text;
  return value;
}

template <class T>
T read(const std::string& text) {
  return std::get<T>(valueOf(text).get());
}

std::string problemOf(const std::string& text) {
  try {
    CValueScanner(text).takeValue();
  } catch (const CValueTextError& error) {
    return error.reason;
  }
  return "none";
}

TEST(ValueText, IsWhatPeopleWouldWrite) {
  EXPECT_EQ(valueText({-12}), "-12");
  EXPECT_EQ(valueText({true}), "true");
  EXPECT_EQ(valueText({1.5}), "1.5");
  EXPECT_EQ(valueText({2.0}), "2.0");
  EXPECT_EQ(valueText({1e300}), "1e+300");
  EXPECT_EQ(valueText({std::int64_t{7}}), "{ int64 = 7 }");
  EXPECT_EQ(valueText({std::int64_t{5'000'000'000}}), "5000000000");
  EXPECT_EQ(valueText({CBytes{std::byte{0}, std::byte{0xFF}}}), "{ hex = \"00FF\" }");
  EXPECT_EQ(valueText({std::string("a \"b\"\n\\")}), "\"a \\\"b\\\"\\n\\\\\"");
  EXPECT_EQ(nameText("width_2-x"), "width_2-x");
  EXPECT_EQ(nameText("my key"), "\"my key\"");
  EXPECT_EQ(nameText(""), "\"\"");
}

TEST(ValueText, IsReadInTheWaysThatPeopleWriteIt) {
  EXPECT_EQ(read<std::int32_t>("+5"), 5);
  EXPECT_EQ(read<std::int32_t>("-2147483648"), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(read<std::int64_t>("2147483648"), 2147483648);
  EXPECT_EQ(read<std::int64_t>("{int64=-9223372036854775808}"), std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(read<bool>("false"), false);
  EXPECT_EQ(read<double>("1e3"), 1000.0);
  EXPECT_EQ(read<double>("+1.5"), 1.5);
  EXPECT_EQ(read<double>("-inf"), -std::numeric_limits<double>::infinity());
  EXPECT_TRUE(std::isnan(read<double>("nan")));
  EXPECT_EQ(read<std::string>("'C:\\new'"), "C:\\new");
  EXPECT_EQ(read<std::string>(R"("\u00e9\U0001F600\t\b\f\r")"), "\xC3\xA9\xF0\x9F\x98\x80\t\b\f\r");
  EXPECT_EQ(read<CBytes>("{ hex = \"0a FF\" }"), (CBytes{std::byte{10}, std::byte{255}}));
}

TEST(ValueText, IsRefusedWithAReason) {
  EXPECT_EQ(problemOf(""), "a value is missing");
  EXPECT_EQ(problemOf("\"no end"), "a text has no end");
  EXPECT_EQ(problemOf("\"no end\\"), "a text has no end");
  EXPECT_EQ(problemOf("'no end"), "a text has no end");
  EXPECT_EQ(problemOf("\"\\x\""), "a backslash stands before what it has no meaning for");
  EXPECT_EQ(problemOf("\"\\u12\""), "a character's number is none");
  EXPECT_EQ(problemOf("\"\\u12"), "a character's number is none");
  EXPECT_EQ(problemOf("\"\\U00110000\""), "a character's number is none");
  EXPECT_EQ(problemOf("99999999999999999999"), "a number is too large");
  EXPECT_EQ(problemOf("1e999"), "a number is too large or too small");
  for (const char* text : {"yes", "1.5.2", "0x10", "--5", "-", "+", "1-", "infinity", ".5", "1e", "NaN"})
    EXPECT_EQ(problemOf(text), "a value is not understood") << text;
  EXPECT_EQ(problemOf("{ hex = \"0\" }"), "bytes are not pairs of hexadecimal digits");
  EXPECT_EQ(problemOf("{ hex = \"zz\" }"), "bytes are not pairs of hexadecimal digits");
  EXPECT_EQ(problemOf("{ hex = 5 }"), "a type is not known");
  EXPECT_EQ(problemOf("{ int32 = 5 }"), "a type is not known");
  EXPECT_EQ(problemOf("{ int64 = 1.5 }"), "a type is not known");
  EXPECT_EQ(problemOf("{ int64 = 5"), "'}' is missing");
  EXPECT_EQ(problemOf("{ int64 5 }"), "'=' is missing");
  EXPECT_EQ(problemOf("{ int64 = { int64 = 5 } }"), "a value is not understood");
}

TEST(ValueText, KeepsEveryNumber) {
  std::mt19937_64 random(3);
  for (int i = 0; i < 200000; ++i) {
    const std::uint64_t bits = random();
    const auto number = std::bit_cast<double>(bits);
    const auto back = valueOf(valueText({number})).asDouble();
    ASSERT_TRUE(back);
    ASSERT_EQ(std::bit_cast<std::uint64_t>(*back), bits);
    const auto whole = static_cast<std::int64_t>(random() >> (random() % 64));
    ASSERT_EQ(read<std::int64_t>(valueText({whole})), whole);
    const auto small = static_cast<std::int32_t>(random());
    ASSERT_EQ(read<std::int32_t>(valueText({small})), small);
  }
}

TEST(ValueText, KeepsNumbersThatAreSpecial) {
  using Limits = std::numeric_limits<double>;
  for (const double number : {0.0, -0.0, Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(),
                              -Limits::quiet_NaN(), Limits::signaling_NaN(), Limits::denorm_min(), Limits::min(),
                              Limits::max(), std::bit_cast<double>(0x7FF8000000000123u)}) {
    const auto back = valueOf(valueText({number})).asDouble();
    ASSERT_TRUE(back);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(*back), std::bit_cast<std::uint64_t>(number)) << valueText({number});
  }
}

TEST(ValueText, KeepsEveryByte) {
  std::mt19937 random(4);
  for (std::size_t size : {0, 1, 8, 300}) {
    CBytes bytes(size);
    for (std::byte& byte : bytes) byte = static_cast<std::byte>(random());
    EXPECT_EQ(read<CBytes>(valueText({bytes})), bytes);
  }
}

}  // namespace
}  // namespace orlo::posix
