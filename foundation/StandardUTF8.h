#pragma once

#include "foundation/TextView.h"

namespace orlo {

/// Reads one character of UTF-8 as everybody else writes it: file names and escapes come from outside, where all of
/// Unicode has a form. Answers the position behind it; -1 if the bytes are none, surrogates and overlong forms
/// included.
int readStandardUTF8(char32_t& codePoint, const unsigned char* bytes, int size, int pos);

/// The bytes of one character, 1 to 4; returns how many.
int writeStandardUTF8(char32_t codePoint, unsigned char (&bytes)[4]);

/// The number of bytes that a lead byte announces, 0 if it is none.
int standardUTF8Length(unsigned char lead);

}  // namespace orlo
