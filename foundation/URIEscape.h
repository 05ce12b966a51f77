#pragma once

#include "foundation/String.h"

#include <string>
#include <string_view>

namespace orlo {

/// The text with every character replaced by the bytes of its UTF-8 form, each as "%" and two upper-case hexadecimal
/// digits, but for ASCII letters and digits, "-_.!~*'()" and the characters allowed. A byte of a UTF-8 text that is no
/// part of a character is written in the same way, so that it isn't lost.
String uriEscape(const String& text, const wchar_t* allowed);

/// The text with every run of such bytes that is one character in UTF-8 replaced by that character. All else stays.
String uriUnescape(const String& text);

namespace uri {

/// What stands in a path without being escaped, beside the characters that are never escaped.
inline constexpr const wchar_t* kPathCharacters = L";:,/@&=+$";

/// The text in UTF-16, all of it: what is no character in a UTF-8 text becomes an escape.
String toWideText(const String& text);

String fromUnits(std::u16string_view text);
/// Valid as long as the text, which must be in UTF-16.
std::u16string_view unitsOf(const String& text);

/// What an escape at pos stands for, -1 if there is none: "%" and two hexadecimal digits.
int escapedByteAt(std::u16string_view text, std::size_t pos);

/// Appends the first character of the text in UTF-8; answers how many units it takes.
std::size_t appendUTF8(std::string& bytes, std::u16string_view text);

String unescape(std::u16string_view text);

}  // namespace uri

}  // namespace orlo
