#pragma once

#include "foundation/String.h"

#include <cstdint>

namespace orlo {

/// In decimal digits, with a "-" in front of a negative number.
String intToString(std::int32_t value);
String int64ToString(std::int64_t value);
/// Six significant digits, with an exponent for the very large and the very small, and with the decimal point of the
/// current locale.
String doubleToString(double value);

/// The whole text as a number of the base, which uses the letters "A" to "Z" or "a" to "z" as digits from 10 on, with a
/// "+" or "-" in front or none. A number that is too large wraps, the empty text is 0, and all that is no number throws
/// CParseError.
std::int32_t parseInt(const CTextView& text, int base = 10);
std::int64_t parseInt64(const CTextView& text, int base = 10);
/// The same without a sign.
std::uint64_t parseUInt64(const CTextView& text, int base = 10);

/// A number and how many characters of the text it takes up.
struct CIntPrefix {
  std::uint64_t value = 0;
  int count = 0;
};
/// The digits at the start of the text. It takes no sign, and without a digit both are 0.
CIntPrefix parseIntPrefix(const CTextView& text, int base = 10);

/// The number that the text holds, with "." or the decimal point of the current locale. A text that does not begin with
/// a number other than 0 must be a written zero as a whole, else CParseError is thrown.
double parseDouble(const CTextView& text);

}  // namespace orlo
