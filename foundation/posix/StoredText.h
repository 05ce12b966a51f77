#pragma once

#include "foundation/String.h"

#include <string>
#include <string_view>

namespace orlo::posix {

/// Texts between strings and settings files, which hold all of Unicode in standard UTF-8. A string in UTF-8 gives what
/// its bytes are by that standard; bytes that are no character are left out. Halves of surrogate pairs, which only
/// UTF-32 has by themselves, have the form that their number would have.
std::string toStoredText(const String& text);
/// Puts a character at the end.
void appendStored(std::string& text, char32_t codePoint);
/// In UTF-16, which leaves no character out.
String fromStoredText(std::string_view text);
/// In lower case.
std::string foldedText(std::string_view text);

}  // namespace orlo::posix
