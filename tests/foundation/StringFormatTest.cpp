#include "foundation/StringFormat.h"
#include "tests/foundation/TextOf.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

namespace orlo {
namespace {

template <class... Values>
std::string formatted(const String& format, Values... values) {
  CStringFormat result(format);
  (result.push(values), ...);
  return textOf(result.getString());
}

std::string argumentFault(const std::function<void()>& action) {
  try {
    action();
  } catch (const CInvalidArgError& error) {
    EXPECT_EQ(error.getObject(), nullptr);
    EXPECT_TRUE(error.getMethod().isNull());
    return textOf(error.getArgument());
  }
  return "no fault";
}

std::string formatFault(const String& format) {
  return argumentFault([&] { const CStringFormat parsed(format); });
}

template <class Value>
std::string pushFault(const String& format, Value value) {
  CStringFormat parsed(format);
  return argumentFault([&] { parsed.push(value); });
}

constexpr char kMismatch[] = "CStringFormat: argument does not match the field's format specification.";
constexpr char kInvalid[] = "CStringFormat: invalid format string.";
constexpr char kTooManyFlags[] = "CStringFormat: too many field flags specified.";
constexpr char kExpectedWidth[] = "CStringFormat: expected integer value (field width).";
constexpr char kExpectedPrecision[] = "CStringFormat: expected integer value (field precision).";

TEST(StringFormat, GivesAFormatWithoutFieldsAtOnce) {
  EXPECT_EQ(formatted("no fields"), "no fields");
  EXPECT_EQ(formatted(""), "");
  EXPECT_EQ(formatted(nullptr), "");
  EXPECT_EQ(formatted("100%%"), "100%");
  EXPECT_EQ(formatted("%%%%d"), "%%d");
}

TEST(StringFormat, FillsFieldsBetweenTexts) {
  EXPECT_EQ(formatted("%s has %d of %5.1f MB", "He", 3, 2.25), "He has 3 of   2.2 MB");
  EXPECT_EQ(formatted("%d%%%d", 1, 2), "1%2");
}

TEST(StringFormat, TakesTheWidthFirst) {
  EXPECT_EQ(formatted("%*d", 5, 42), "   42");
  EXPECT_EQ(formatted("%*.*d", 5, 3, 42), "  042");
  EXPECT_EQ(formatted("%*.*f|", 8, 2, 3.14159), "    3.14|");
  EXPECT_EQ(formatted("%.*s", 2, "abc"), "ab");
  EXPECT_EQ(formatted("%*c", 3, U'x'), "  x");
}

TEST(StringFormat, AlignsOnTheLeft) {
  EXPECT_EQ(formatted("%-5d|", 42), "42   |");
  EXPECT_EQ(formatted("%-5s|", "ab"), "ab   |");
  EXPECT_EQ(formatted("%-5c|", U'x'), "x    |");
  EXPECT_EQ(formatted("%-8.1f|", 1.25), "1.2     |");
}

TEST(StringFormat, RefusesAnArgumentThatDoesNotMatch) {
  EXPECT_EQ(pushFault("%s", 42), kMismatch);
  EXPECT_EQ(pushFault("%f", 42), kMismatch);
  EXPECT_EQ(pushFault("%d", 1.0), kMismatch);
  EXPECT_EQ(pushFault("%d", "1"), kMismatch);
  EXPECT_EQ(pushFault("%d", U'1'), kMismatch);
  EXPECT_EQ(pushFault("%s", U'1'), kMismatch);
  EXPECT_EQ(pushFault("%c", "1"), kMismatch);
  EXPECT_EQ(pushFault("%c", 1.0), kMismatch);
  EXPECT_EQ(pushFault("%f", "1"), kMismatch);
  EXPECT_EQ(pushFault("no field", 1), kMismatch);
  EXPECT_EQ(pushFault("", "text"), kMismatch);
}

TEST(StringFormat, TellsWhatIsWrongInAWholeSentence) {
  try {
    CStringFormat("%d").push("text");
    FAIL();
  } catch (const CInvalidArgError& error) {
    EXPECT_EQ(messageOf(error),
              std::string("An invalid argument was passed to method 'unspecified method' of '': ") + kMismatch);
  }
}

TEST(StringFormat, WantsAnIntegerForAStar) {
  EXPECT_EQ(pushFault("%*s", "text"), kExpectedWidth);
  EXPECT_EQ(pushFault("%*d", 1.0), kExpectedWidth);
  EXPECT_EQ(pushFault("%*c", U'x'), kExpectedWidth);
  EXPECT_EQ(pushFault("%*.*s", "text"), kExpectedWidth);
  EXPECT_EQ(pushFault("%.*s", "text"), kExpectedPrecision);
  EXPECT_EQ(pushFault("%.*f", 1.0), kExpectedPrecision);
  CStringFormat format("%*.*s");
  format.push(5);
  EXPECT_EQ(argumentFault([&] { format.push("text"); }), kExpectedPrecision);
}

TEST(StringFormat, TakesFiveFlags) {
  EXPECT_EQ(formatted("%+-0 #d", 1), "+1");
  EXPECT_EQ(formatted("%-----3d|", 1), "1  |");
  EXPECT_EQ(formatted("%0000010d", 1), "0000000001");
  EXPECT_EQ(formatFault("%+-0 #+d"), kTooManyFlags);
  EXPECT_EQ(formatFault("%------d"), kTooManyFlags);
  EXPECT_EQ(formatFault("%000000d"), kTooManyFlags);
}

TEST(StringFormat, KeepsCharactersOfAllOfUnicode) {
  EXPECT_EQ(formatted("%c", U'é'), "é");
  EXPECT_EQ(formatted("%4c|", U'é'), "   é|");
  EXPECT_EQ(formatted("%-4c|", U'é'), "é   |");
  EXPECT_EQ(formatted("%C%c", U'\u20AC', U'\U0001F600'), "€😀");
  EXPECT_EQ(formatted("%c", 0x20AC), "€");
  EXPECT_EQ(formatted("%.0c|%.0c", U'x', U'é'), "x|");
}

TEST(StringFormat, LeavesOutWhatIsNoCharacter) {
  EXPECT_EQ(formatted("<%c>", char32_t{0x110000}), "<>");
  EXPECT_EQ(formatted("<%3c>", -1), "<   >");
  EXPECT_EQ(formatted("<%c>", std::int64_t{0x100000041}), "<>");
  EXPECT_EQ(formatted("<%c>", std::numeric_limits<std::uint64_t>::max()), "<>");
}

TEST(StringFormat, KeepsACharacterOfCodeZero) {
  EXPECT_EQ(formatted("a%cb", U'\0'), std::string("a\0b", 3));
}

TEST(StringFormat, WaitsForAllOfItsValues) {
  const auto isMissing = [](const CStringFormat& format) {
    try {
      format.getString();
    } catch (const CInvalidObjectStateError& error) {
      return messageOf(error) ==
             "The object is in an invalid state (): CStringFormat: not all parameters have been pushed in yet.";
    }
    return false;
  };
  EXPECT_TRUE(isMissing(CStringFormat("%d")));
  CStringFormat format("%*.*d %s");
  format.push(4);
  EXPECT_TRUE(isMissing(format));
  format.push(2);
  EXPECT_TRUE(isMissing(format));
  format.push(7);
  EXPECT_TRUE(isMissing(format));
  format.push("x");
  EXPECT_EQ(textOf(format.getString()), "  07 x");
  EXPECT_EQ(textOf(format.getString()), "  07 x");
}

TEST(StringFormat, IsNotFinishedByAFault) {
  CStringFormat format("%d");
  EXPECT_THROW(format.push("text"), CInvalidArgError);
  EXPECT_THROW(format.getString(), CInvalidObjectStateError);
  CStringFormat broken("%d %y");
  EXPECT_EQ(argumentFault([&] { broken.push(1); }), kInvalid);
  EXPECT_THROW(broken.getString(), CInvalidObjectStateError);
}

TEST(StringFormat, RefusesAFormatThatIsNone) {
  for (const char* format :
       {"%",   "abc %", "%5",    "%.",    "%5.",   "%*",    "%l",   "%ll",  "%y",   "%a",    "%n",   "%p",
        "%5%", "%-%",   "%lld%", "%hhhd", "%llld", "%I32d", "%I6d", "%zzd", "%*5d", "%.-5d", "%d %", "%\xE9"}) {
    const bool late = std::string(format).starts_with("%d") || std::string(format).starts_with("%lld");
    EXPECT_EQ(late ? pushFault(format, 1) : formatFault(format), kInvalid) << format;
  }
  EXPECT_EQ(formatFault(u8"%５d"), kInvalid);
  EXPECT_EQ(formatFault(fromUTF8(std::string_view("%\0d", 3))), kInvalid);
}

TEST(StringFormat, KnowsAllConversions) {
  for (const char* format : {"%d", "%i", "%o", "%x", "%X", "%u", "%c", "%C"}) EXPECT_NE(formatted(format, 1), "");
  for (const char* format : {"%e", "%E", "%f", "%g", "%G"}) EXPECT_NE(formatted(format, 1.0), "");
  for (const char* format : {"%s", "%S"}) EXPECT_EQ(formatted(format, u8"é"), "é");
}

TEST(StringFormat, LetsTheValueSayHowWideItIs) {
  for (const char* size : {"", "l", "ll", "L", "h", "hh", "z", "j", "t", "I64"}) {
    const std::string field = std::string("%") + size;
    EXPECT_EQ(formatted(fromUTF8(field + "d"), std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
    EXPECT_EQ(formatted(fromUTF8(field + "x"), -1), "ffffffff");
    EXPECT_EQ(formatted(fromUTF8(field + "x"), std::int64_t{-1}), "ffffffffffffffff");
    EXPECT_EQ(formatted(fromUTF8(field + "g"), 0.5), "0.5");
    EXPECT_EQ(formatted(fromUTF8(field + "s"), "text"), "text");
  }
}

TEST(StringFormat, ShowsAValueThatIsNotSignedAsItIs) {
  EXPECT_EQ(formatted("%d", std::numeric_limits<std::uint32_t>::max()), "4294967295");
  EXPECT_EQ(formatted("%+d", std::numeric_limits<std::uint64_t>::max()), "+18446744073709551615");
  EXPECT_EQ(textOf(CStringFormat("%d").push(-1, false).getString()), "4294967295");
  EXPECT_EQ(textOf(CStringFormat("%u").push(-1, true).getString()), "4294967295");
  EXPECT_EQ(textOf(CStringFormat("%d").push(0xFFFFFFFFU, true).getString()), "-1");
  EXPECT_EQ(formatted("%d", static_cast<short>(-5)), "-5");
}

TEST(StringFormat, TakesTextsOfEveryEncoding) {
  EXPECT_EQ(formatted("%s%s%s", u8"é", u"€", L"Ω"), "é€Ω");
  EXPECT_EQ(formatted(u"€ %s", "\xE9"), "€ é");
  EXPECT_EQ(formatted("\xE9 %s", u8"€"), "é €");
  EXPECT_EQ(formatted("<%5s>", String(nullptr)), "<     >");
}

TEST(StringFormat, CountsTheCharactersOfTexts) {
  EXPECT_EQ(formatted("%.2s", u8"éàü"), "éà");
  EXPECT_EQ(formatted("%.0s|", u8"éàü"), "|");
  EXPECT_EQ(formatted("%.s|", u8"éàü"), "|");
  EXPECT_EQ(formatted("%.9s|", u8"éàü"), "éàü|");
  EXPECT_EQ(formatted("%5s|", u8"éàü"), "  éàü|");
  EXPECT_EQ(formatted("%-5.1s|", u8"éàü"), "é    |");
}

TEST(StringFormat, PadsTextsWithZeros) {
  EXPECT_EQ(formatted("%05s", "ab"), "000ab");
  EXPECT_EQ(formatted("%-05s", "ab"), "ab000");
  EXPECT_EQ(formatted("%05c", U'a'), "0000a");
  EXPECT_EQ(formatted("%05c", U'é'), "0000é");
}

// Where C thinks otherwise.

TEST(StringFormat, PadsWithZerosWhateverThePrecision) {
  EXPECT_EQ(formatted("%08.3d", 5), "00000005");
  EXPECT_EQ(formatted("%08.3d", -5), "-0000005");
  EXPECT_EQ(formatted("%#08.3x", 5), "0x000005");
}

TEST(StringFormat, MarksTheBaseOfEveryNumber) {
  EXPECT_EQ(formatted("%#x", 0), "0x0");
  EXPECT_EQ(formatted("%#X", 255), "0XFF");
  EXPECT_EQ(formatted("%#o", 0), "00");
  EXPECT_EQ(formatted("%#.3o", 8), "0010");
  EXPECT_EQ(formatted("%#d", 8), "8");
}

TEST(StringFormat, PassesANegativeWidthOn) {
  EXPECT_EQ(formatted("%*d|", -5, 42), "42|");
  EXPECT_EQ(formatted("%*s|", -5, "ab"), "ab|");
  EXPECT_EQ(formatted("%*c|", -5, U'é'), "é|");
  EXPECT_EQ(formatted("%*c|", -5, U'e'), "e    |");
  EXPECT_EQ(formatted("%*c|", -1, U'e'), "e|");
  EXPECT_EQ(formatted("%*g|", -5, 0.5), "0.5  |");
  EXPECT_EQ(formatted("%.*d|", -5, 42), "42|");
  EXPECT_EQ(formatted("%.*s|", -5, "ab"), "ab|");
  EXPECT_EQ(formatted("%.*g|", -5, 0.5), "0.5|");
}

TEST(StringFormat, BoundsWidthAndPrecision) {
  constexpr char width[] = "CStringFormat: the field width is above 65535.";
  constexpr char precision[] = "CStringFormat: the field precision is above 65535.";
  EXPECT_EQ(formatted("%65535d", 1).size(), 65535U);
  EXPECT_EQ(formatted("%.65535d", 1).size(), 65535U);
  EXPECT_EQ(formatted("%65535.65535f", 1e300).size(), 65535U + 302U);
  EXPECT_EQ(formatted("%65535s", "").size(), 65535U);
  for (const char* format : {"%65536d", "%999999999d", "%-2147483648f", "%99999999999999999999s", "%0999999999c"})
    EXPECT_EQ(formatFault(format), width) << format;
  for (const char* format : {"%.65536d", "%.999999999x", "%.2147483648f", "%.99999999999999999999g"})
    EXPECT_EQ(formatFault(format), precision) << format;
  for (const auto value : {std::int64_t{65536}, std::int64_t{-65536}, std::int64_t{1} << 32,
                           std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()}) {
    EXPECT_EQ(pushFault("%*d", value), width) << value;
    EXPECT_EQ(pushFault("%*f", value), width) << value;
    EXPECT_EQ(pushFault("%*s", value), width) << value;
    EXPECT_EQ(pushFault("%.*f", value), value > 0 ? precision : "no fault") << value;
  }
  EXPECT_EQ(pushFault("%*d", std::numeric_limits<std::uint64_t>::max()), width);
}

TEST(StringFormat, CutsTextsToWhateverLength) {
  EXPECT_EQ(formatted("%.2147483647s", "abc"), "abc");
  EXPECT_EQ(formatted("%.99999999999999999999s", "abc"), "abc");
  EXPECT_EQ(formatted("%.*s", std::int64_t{1} << 40, "abc"), "abc");
  EXPECT_EQ(formatted("%.*s", std::numeric_limits<std::int64_t>::min(), "abc"), "abc");
}

TEST(StringFormat, IsAnObject) {
  const auto format = makeObject<CStringFormat>("%d");
  EXPECT_EQ(textOf(format->push(5).getString()), "5");
}

}  // namespace
}  // namespace orlo
