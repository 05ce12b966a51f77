#include "foundation/StringFormat.h"
#include "tests/foundation/TextOf.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstdio>
#include <functional>
#include <limits>
#include <random>
#include <string_view>
#include <type_traits>
#include <vector>

namespace orlo {
namespace {

template <class... Values>
std::string printed(const std::string& format, Values... values) {
  const int size = std::snprintf(nullptr, 0, format.c_str(), values...);
  EXPECT_GE(size, 0) << format;
  std::string text(static_cast<std::size_t>(std::max(size, 0)) + 1, '\0');
  std::snprintf(text.data(), text.size(), format.c_str(), values...);
  text.pop_back();
  return text;
}

template <class... Values>
std::string formatted(const std::string& format, Values... values) {
  CStringFormat result(fromUTF8(format));
  (result.push(values), ...);
  return textOf(result.getString());
}

/// A field up to its conversion letter.
struct CCombination {
  std::string flags;
  /// -1 for none.
  int width = -1;
  /// -1 for none, -2 for a "." without digits.
  int precision = -1;

  bool has(char flag) const { return flags.find(flag) != std::string::npos; }
  std::string text() const {
    std::string result("%");
    result += flags;
    if (width >= 0) result += std::to_string(width);
    return result += precisionText();
  }
  std::string precisionText() const {
    std::string result(precision == -1 ? 0 : 1, '.');
    if (precision >= 0) result += std::to_string(precision);
    return result;
  }
  std::string starred() const { return std::string("%").append(flags).append("*.*"); }
  int precisionValue() const { return precision == -2 ? 0 : precision; }
};

void forAll(std::string_view flags, const std::vector<int>& widths, const std::vector<int>& precisions,
            const std::function<void(const CCombination&)>& visit) {
  for (unsigned set = 0; set < 1U << flags.size(); ++set) {
    CCombination combination;
    for (std::size_t i = 0; i < flags.size(); ++i)
      if (set >> i & 1) combination.flags += flags[i];
    for (const int width : widths)
      for (const int precision : precisions) {
        combination.width = width;
        combination.precision = precision;
        visit(combination);
      }
  }
}

const std::vector<int> kWidths{-1, 1, 2, 5, 24};
const std::vector<int> kPrecisions{-1, -2, 0, 1, 3, 25};

template <class T>
std::vector<T> integers() {
  std::vector<T> values{0, 1, 7, 8, 9, 10, 15, 16, 255, 4095, 12345};
  using Limits = std::numeric_limits<T>;
  for (const T value : {Limits::min(), Limits::max()}) {
    values.push_back(value);
    values.push_back(value / 2);
    values.push_back(value / 10);
  }
  for (std::size_t i = 0, count = values.size(); i < count; ++i)
    values.push_back(static_cast<T>(0 - static_cast<std::make_unsigned_t<T>>(values[i])));
  return values;
}

/// What C prints where it is of one mind with us; nothing where it leaves the field undefined or has rules of its own.
bool agreesWithC(const CCombination& field, char letter, bool isZero) {
  if (field.has('0') && !field.has('-') && field.precision != -1) return false;
  if (!field.has('#')) return true;
  return (letter == 'x' || letter == 'X' || letter == 'o') && !isZero && (letter != 'o' || field.precision == -1);
}

/// The rules of our own, on the digits that C prints.
std::string byOurRules(const CCombination& field, char letter, std::string digits) {
  std::string_view front;
  if (letter == 'd' || letter == 'i') {
    front = digits.starts_with('-') ? "-" : field.has('+') ? "+" : field.has(' ') ? " " : "";
    if (front == "-") digits.erase(0, 1);
  } else if (field.has('#')) {
    front = letter == 'o' ? "0" : letter == 'x' ? "0x" : letter == 'X' ? "0X" : "";
  }
  const std::size_t width = field.width < 0 ? 0 : static_cast<std::size_t>(field.width);
  const std::size_t size = front.size() + digits.size();
  const std::string padding(width > size ? width - size : 0, field.has('0') && !field.has('-') ? '0' : ' ');
  const std::string start(front);
  if (field.has('-')) return start + digits + padding;
  return field.has('0') ? start + padding + digits : padding + start + digits;
}

template <class T>
void compareIntegers(const std::string& sizePrefix) {
  const std::vector<T> values = integers<T>();
  forAll("-+0 #", kWidths, kPrecisions, [&](const CCombination& field) {
    if (testing::Test::HasFailure()) return;
    for (const char letter : {'d', 'i', 'o', 'x', 'X', 'u'})
      for (const T value : values) {
        if (std::is_unsigned_v<T> && (letter == 'd' || letter == 'i') && value > std::numeric_limits<T>::max() / 2)
          continue;
        const std::string ours = field.text() + letter;
        const std::string theirs = field.text() + sizePrefix + letter;
        const std::string plain = std::string("%").append(field.precisionText()).append(sizePrefix) + letter;
        const std::string expected = agreesWithC(field, letter, value == 0)
                                         ? printed(theirs, value)
                                         : byOurRules(field, letter, printed(plain, value));
        EXPECT_EQ(formatted(ours, value), expected) << ours << " of " << value;
        EXPECT_EQ(formatted(field.starred() + letter, field.width, field.precisionValue(), value), expected)
            << ours << " of " << value;
      }
  });
}

TEST(StringFormatProperties, WriteIntegersAsCDoes) {
  compareIntegers<std::int32_t>("");
  compareIntegers<std::uint32_t>("");
  compareIntegers<long long>("ll");
  compareIntegers<unsigned long long>("ll");
}

TEST(StringFormatProperties, WriteFloatingPointAsCDoes) {
  std::vector<double> values{0.0,
                             1.0,
                             0.5,
                             0.1,
                             1.0 / 3,
                             2.0 / 3,
                             9.5,
                             99999.95,
                             999999.5,
                             1e15,
                             1e16,
                             123456.789,
                             1e-4,
                             1e-5,
                             1e300,
                             1e-300,
                             DBL_MAX,
                             DBL_MIN,
                             DBL_TRUE_MIN,
                             DBL_MIN / 3,
                             M_PI * 1e100,
                             HUGE_VAL,
                             NAN,
                             1 / M_PI,
                             1e22,
                             9007199254740993.0,
                             0x1.fffffp-1000,
                             25e-1};
  for (std::size_t i = 0, count = values.size(); i < count; ++i) values.push_back(-values[i]);
  forAll("-+0 #", kWidths, {-1, -2, 0, 1, 3, 17, 40}, [&](const CCombination& field) {
    if (testing::Test::HasFailure()) return;
    for (const char letter : {'e', 'E', 'f', 'g', 'G'})
      for (const double value : values) {
        const std::string format = field.text() + letter;
        const std::string expected = printed(format, value);
        EXPECT_EQ(formatted(format, value), expected) << format << " of " << value;
        EXPECT_EQ(formatted(field.starred() + letter, field.width, field.precisionValue(), value), expected)
            << format << " of " << value;
      }
  });
}

TEST(StringFormatProperties, WriteFloatingPointAsCDoesWhateverTheSize) {
  for (const char* format : {"%400f", "%-400e|", "%.400f", "%.1100e", "%0500.300f", "%#.1100g"})
    for (const double value : {0.1, -1e300, DBL_MAX, DBL_TRUE_MIN, HUGE_VAL})
      EXPECT_EQ(formatted(format, value), printed(format, value)) << format << " of " << value;
}

TEST(StringFormatProperties, PassANegativeWidthOfFloatingPointToC) {
  for (const int width : {-1, -2, -10, -200})
    for (const int precision : {-100, -1, 0, 5})
      for (const double value : {0.1, -1e10, HUGE_VAL})
        EXPECT_EQ(formatted("%0*.*f|", width, precision, value), printed("%0*.*f|", width, precision, value));
}

TEST(StringFormatProperties, WriteCharactersAsCDoes) {
  forAll("-", kWidths, {-1}, [](const CCombination& field) {
    for (int character = 0; character < 0x80; ++character) {
      const std::string format = field.text() + "c";
      EXPECT_EQ(formatted(format, static_cast<char32_t>(character)), printed(format, character)) << character;
      EXPECT_EQ(formatted(format, character), printed(format, character)) << character;
      const std::string starred = "%" + field.flags + "*c";
      EXPECT_EQ(formatted(starred, -field.width, character), printed(starred, -field.width, character)) << character;
    }
  });
}

TEST(StringFormatProperties, WriteTextsOfASCIIAsCDoes) {
  forAll("-", kWidths, kPrecisions, [](const CCombination& field) {
    for (const char* text : {"", "a", "ab", "abcde", "a longer text than all of the widths and precisions"}) {
      const std::string format = field.text() + "s";
      const std::string expected = printed(format, text);
      EXPECT_EQ(formatted(format, text), expected) << format << " of " << text;
      EXPECT_EQ(formatted(field.starred() + "s", field.width, field.precisionValue(), text), expected)
          << format << " of " << text;
    }
  });
}

// C with wide characters counts characters, too.
TEST(StringFormatProperties, WriteTextsOfAllOfUnicodeAsWideTextsAreWritten) {
  const std::vector<std::u32string> texts{U"", U"é", U"éàü", U"a€😀", U"Ωμέγα", U"日本語のテキスト"};
  forAll("-", kWidths, kPrecisions, [&](const CCombination& field) {
    for (const std::u32string& text : texts) {
      const std::string format = field.text() + "s";
      const std::string wideFormat = field.text() + "ls";
      wchar_t expected[64];
      const std::wstring wide(text.begin(), text.end());
      ASSERT_GE(std::swprintf(expected, std::size(expected), std::wstring(wideFormat.begin(), wideFormat.end()).c_str(),
                              wide.c_str()),
                0);
      const String ours = CStringFormat(fromUTF8(format)).push(text.c_str()).getString();
      EXPECT_EQ(ours, expected) << format << " gives " << textOf(ours);
    }
  });
}

/// A field after the other, with text between them, as C prints them one by one.
TEST(StringFormatProperties, FillManyFieldsOfAnyKind) {
  std::mt19937 random(7);
  const auto below = [&](unsigned bound) { return static_cast<unsigned>(random() % bound); };
  for (int round = 0; round < 2000; ++round) {
    std::string format;
    std::string expected;
    std::vector<std::function<void(CStringFormat&)>> pushes;
    for (unsigned fields = below(12); fields > 0; --fields) {
      for (unsigned length = below(20); length > 0; --length) {
        const char character = static_cast<char>(' ' + below(95));
        format.append(character == '%' ? 2 : 1, character);
        expected += character;
      }
      const std::string start = std::string(below(2) != 0 ? "%-" : "%").append(std::to_string(below(30)));
      const auto add = [&](const std::string& field, auto value) {
        format += field;
        expected += printed(field, value);
        pushes.emplace_back([value](CStringFormat& target) { target.push(value); });
      };
      switch (below(4)) {
        case 0:
          add(start + "d", static_cast<std::int32_t>(random()));
          break;
        case 1:
          add(start + "." + std::to_string(below(20)) + "g",
              std::ldexp(static_cast<double>(random()), static_cast<int>(below(200)) - 100));
          break;
        case 2:
          add(start + "c", static_cast<std::int32_t>(' ' + below(95)));
          break;
        default:
          add(start + "." + std::to_string(below(20)) + "s", "some text to be cut");
      }
    }
    CStringFormat target(fromUTF8(format));
    for (const auto& push : pushes) push(target);
    ASSERT_EQ(textOf(target.getString()), expected) << format;
  }
}

}  // namespace
}  // namespace orlo
