#pragma once

namespace orlo {

class String;

/// The number that the text holds, with "." as decimal point whatever the locale is. A text that does not begin with
/// a number other than 0 must be a written zero as a whole, else CParseError is thrown.
double parseDouble(const String& text);

}  // namespace orlo
