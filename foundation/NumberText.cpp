#include "foundation/NumberText.h"

#include "foundation/CodePointReader.h"
#include "foundation/Error.h"
#include "foundation/PlatformNumber.h"
#include "foundation/StringFormat.h"
#include "foundation/StringLocalizer.h"

#include <cstring>
#include <string_view>

namespace orlo {

namespace {

/// -1 for what is no digit.
int digitValue(char32_t character) {
  if (character >= U'0' && character <= U'9') return static_cast<int>(character - U'0');
  if (character >= U'A' && character <= U'Z') return static_cast<int>(character - U'A') + 10;
  if (character >= U'a' && character <= U'z') return static_cast<int>(character - U'a') + 10;
  return -1;
}

/// Wraps at 64 bits, and so does what is cut from it at 32.
std::uint64_t parseWhole(const CTextView& text, int base) {
  CStringPos start;
  const std::optional<char32_t> first = text::next(text, start);
  const bool negative = first == U'-';
  const bool hasSign = (negative || first == U'+') && !start.isEnd();
  const std::uint64_t value = parseUInt64(hasSign ? text::part(text, start, CStringPos::end()) : text, base);
  return negative ? 0 - value : value;
}

/// Takes what it looks for off the front of a text.
class CScanner {
public:
  explicit CScanner(std::string_view text) : text_(text) {}

  bool takeAnyOf(std::string_view characters) {
    const bool found = !text_.empty() && characters.find(text_.front()) != std::string_view::npos;
    if (found) text_.remove_prefix(1);
    return found;
  }
  bool takeDigits() {
    bool any = false;
    while (takeAnyOf("0123456789")) any = true;
    return any;
  }
  bool atEnd() const { return text_.empty(); }

private:
  std::string_view text_;
};

bool isNumber(std::string_view text) {
  CScanner scanner(text);
  scanner.takeAnyOf("+-");
  bool digits = scanner.takeDigits();
  if (scanner.takeAnyOf(".") && scanner.takeDigits()) digits = true;
  if (!digits) return false;
  if (scanner.takeAnyOf("dDeE")) {
    scanner.takeAnyOf("+-");
    if (!scanner.takeDigits()) return false;
  }
  return scanner.atEnd();
}

char32_t localDecimalPoint() {
  const char* text = getDecimalPoint();
  char32_t point = U'.';
  if (std::strcmp(text, ".") != 0)
    getCPCharEncoding()->decode(point, reinterpret_cast<const unsigned char*>(text),
                                static_cast<int>(std::strlen(text)), 0);
  return point;
}

/// The text as the runtime reads it in the "C" locale. What is not ASCII is part of no number.
std::string withPlainPoint(const CTextView& text) {
  const char32_t point = localDecimalPoint();
  std::string result;
  CCodePointReader reader(text);
  for (char32_t c; reader.read(c);) result += c == point ? '.' : c < 0x80 ? static_cast<char>(c) : '?';
  return result;
}

}  // namespace

String intToString(std::int32_t value) {
  return CStringFormat("%d").push(value).getString();
}

String int64ToString(std::int64_t value) {
  return CStringFormat("%d").push(value).getString();
}

String doubleToString(double value) {
  return CStringFormat("%g").push(value).getString();
}

std::int32_t parseInt(const CTextView& text, int base) {
  return static_cast<std::int32_t>(parseWhole(text, base));
}

std::int64_t parseInt64(const CTextView& text, int base) {
  return static_cast<std::int64_t>(parseWhole(text, base));
}

std::uint64_t parseUInt64(const CTextView& text, int base) {
  const CIntPrefix prefix = parseIntPrefix(text, base);
  if (prefix.count != text::length(text)) throw CParseError("Error parsing integer.");
  return prefix.value;
}

CIntPrefix parseIntPrefix(const CTextView& text, int base) {
  CIntPrefix result;
  CCodePointReader reader(text);
  for (char32_t character; reader.read(character); ++result.count) {
    const int digit = digitValue(character);
    if (digit < 0 || digit >= base) break;
    result.value = result.value * static_cast<unsigned>(base) + static_cast<unsigned>(digit);
  }
  return result;
}

// The runtime reads "+" and "-" whatever the signs of the locale are, so only the decimal point differs.
double parseDouble(const CTextView& text) {
  const std::string characters = withPlainPoint(text);
  const double value = readDouble(characters.c_str());
  if (value == 0 && !isNumber(characters))
    throw CParseError(localize("orlo.CDouble.parseError", "Error parsing floating point value."));
  return value;
}

}  // namespace orlo
