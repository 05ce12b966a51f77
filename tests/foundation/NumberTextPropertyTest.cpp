#include "foundation/NumberText.h"
#include "foundation/StringFormat.h"
#include "tests/foundation/TextOf.h"

#include <gtest/gtest.h>

#include <bit>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>
#include <random>

namespace orlo {
namespace {

class NumberTextProperties : public testing::Test {
protected:
  unsigned below(unsigned bound) { return static_cast<unsigned>(random_() % bound); }
  std::uint64_t anyBits() { return random_(); }
  /// Often a number of the base, often nearly one.
  std::string text(int base) {
    std::string result(below(4) == 0 ? 1 : 0, "+-"[below(2)]);
    for (unsigned length = below(10); length > 0; --length) {
      const unsigned digit = below(32) == 0 ? below(36) : below(static_cast<unsigned>(base));
      result +=
          digit < 10 ? static_cast<char>('0' + digit) : static_cast<char>((below(2) != 0 ? 'a' : 'A') + digit - 10);
    }
    if (below(16) == 0) result += ".+- _"[below(5)];
    return result;
  }

private:
  std::mt19937_64 random_{11};
};

/// strtoll reads "0x1" and "0b1" as numbers of base 16 and 2.
bool hasBasePrefix(std::string_view text) {
  return text.find_first_of("xX") != std::string_view::npos || text.find_first_of("bB") == 1 ||
         text.find_first_of("bB") == 2;
}

std::optional<long long> byStrtoll(const std::string& text, int base) {
  char* end = nullptr;
  errno = 0;
  const long long value = std::strtoll(text.c_str(), &end, base);
  EXPECT_EQ(errno, 0) << text;
  return end == text.c_str() + text.size() ? std::optional(value) : std::nullopt;
}

template <class Parse>
auto byUs(Parse parse, const std::string& text, int base) -> std::optional<decltype(parse(text.c_str(), base))> {
  try {
    return parse(text.c_str(), base);
  } catch (const CParseError&) {
    return std::nullopt;
  }
}

TEST_F(NumberTextProperties, ParseIntegersAsStrtollDoes) {
  int numbers = 0;
  for (int round = 0; round < 200'000; ++round) {
    const int base = static_cast<int>(2 + below(35));
    const std::string written = text(base);
    if ((base == 16 || base == 2) && hasBasePrefix(written)) continue;
    const std::optional<long long> expected = byStrtoll(written, base);
    const auto actual = byUs(parseInt64, written, base);
    ASSERT_EQ(actual.has_value(), expected.has_value()) << written << " in base " << base;
    if (!expected) continue;
    ++numbers;
    ASSERT_EQ(*actual, *expected) << written << " in base " << base;
    ASSERT_EQ(parseInt(written.c_str(), base), static_cast<std::int32_t>(*expected)) << written << " in base " << base;
  }
  EXPECT_GT(numbers, 50'000);
}

TEST_F(NumberTextProperties, ReadIntegersThatWereWritten) {
  for (int round = 0; round < 100'000; ++round) {
    const auto number = static_cast<std::int64_t>(anyBits() >> (1 + below(63)));
    const std::int64_t value = below(2) != 0 ? -number : number;
    ASSERT_EQ(parseInt64(int64ToString(value)), value);
    ASSERT_EQ(textOf(int64ToString(value)), std::to_string(value));
    const auto small = static_cast<std::int32_t>(value);
    ASSERT_EQ(parseInt(intToString(small)), small);
    ASSERT_EQ(textOf(intToString(small)), std::to_string(small));
    const std::uint64_t bits = anyBits();
    ASSERT_EQ(parseIntPrefix(CStringFormat("%x").push(bits).getString(), 16).value, bits);
    ASSERT_EQ(parseIntPrefix(CStringFormat("%o").push(bits).getString(), 8).value, bits);
  }
}

TEST_F(NumberTextProperties, ReadDoublesThatWereWrittenInFull) {
  for (int round = 0; round < 100'000; ++round) {
    const auto value = std::bit_cast<double>(anyBits());
    if (std::isnan(value)) continue;
    for (const char* format : {"%.17g", "%.16e", "%.16E", "%.17G"})
      ASSERT_EQ(std::bit_cast<std::uint64_t>(parseDouble(CStringFormat(format).push(value).getString())),
                std::bit_cast<std::uint64_t>(value))
          << value;
  }
}

TEST_F(NumberTextProperties, KeepSixDigitsOfDoubles) {
  for (int round = 0; round < 100'000; ++round) {
    const double value = std::bit_cast<double>(anyBits());
    if (!std::isnormal(value)) continue;
    const String written = doubleToString(value);
    const double again = parseDouble(written);
    if (std::isinf(again)) continue;
    ASSERT_LE(std::abs(again - value) / 5e-6, std::abs(value)) << value;
    ASSERT_EQ(textOf(doubleToString(again)), textOf(written));
  }
}

TEST_F(NumberTextProperties, ReadTheEdgesOfDoubles) {
  using Limits = std::numeric_limits<double>;
  for (const double value : {0.0, Limits::min(), Limits::max(), Limits::denorm_min(), Limits::infinity(), 0.1, 1e22})
    for (const double sign : {1.0, -1.0}) {
      const double again = parseDouble(CStringFormat("%.17g").push(sign * value).getString());
      EXPECT_EQ(again, sign * value);
      EXPECT_EQ(std::signbit(again), sign < 0);
    }
  EXPECT_TRUE(std::isnan(parseDouble(doubleToString(Limits::quiet_NaN()))));
}

}  // namespace
}  // namespace orlo
