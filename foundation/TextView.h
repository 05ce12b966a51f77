#pragma once

#include "foundation/CharEncoding.h"

#include <cstdint>

namespace orlo {

class IString;
class String;

/// A text in memory that somebody else keeps alive, and how it is encoded. Every operation on strings takes its texts
/// as views, so any mix of literals and strings goes, and nothing is converted or allocated for it. Narrow literals are
/// Latin-1. A null pointer is the empty text.
struct CTextView {
  const unsigned char* data = nullptr;
  int byteSize = 0;
  /// In characters, -1 as long as nobody has counted them.
  int length = -1;
  ICharEncoding* encoding = nullptr;

  CTextView(const void* text, int textSize, int textLength, ICharEncoding& textEncoding)
      : data(static_cast<const unsigned char*>(text)),
        byteSize(textSize),
        length(textLength),
        encoding(&textEncoding) {}
  CTextView(const char* latin1);
  CTextView(const wchar_t* wide);
  CTextView(const char16_t* utf16);
  CTextView(const char8_t* utf8);
  CTextView(const unsigned char* utf8);
  CTextView(const char32_t* utf32);
  CTextView(const std::uint32_t* utf32);
  CTextView(const String& text);
  CTextView(const IString& text);
};

}  // namespace orlo
