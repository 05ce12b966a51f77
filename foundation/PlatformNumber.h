#pragma once

namespace orlo {

/// What the C runtime's strtod makes of the text in the "C" locale, whatever the current one is.
double readDouble(const char* text);

}  // namespace orlo
