#pragma once

namespace orlo {

/// What the C runtime's strtod makes of the text in the "C" locale, whatever the current one is.
double readDouble(const char* text);

/// The decimal point of the current locale, in the default code page.
const char* getDecimalPoint();

}  // namespace orlo
