#include "foundation/TextView.h"

#include "foundation/String.h"

namespace orlo {

namespace {

CTextView terminated(const void* text, ICharEncoding& encoding) {
  return {text, text ? encoding.measureTerminated(text) : 0, -1, encoding};
}

}  // namespace

CTextView::CTextView(const char* latin1) : CTextView(terminated(latin1, *getLatin1CharEncoding())) {
  length = byteSize;
}

CTextView::CTextView(const wchar_t* wide) : CTextView(terminated(wide, *getWCharEncoding())) {}

CTextView::CTextView(const char16_t* utf16) : CTextView(terminated(utf16, *getUTF16CharEncoding())) {}

CTextView::CTextView(const char8_t* utf8) : CTextView(terminated(utf8, *getUTF8CharEncoding())) {}

CTextView::CTextView(const unsigned char* utf8) : CTextView(terminated(utf8, *getUTF8CharEncoding())) {}

CTextView::CTextView(const char32_t* utf32) : CTextView(terminated(utf32, *getUTF32CharEncoding())) {}

CTextView::CTextView(const std::uint32_t* utf32) : CTextView(terminated(utf32, *getUTF32CharEncoding())) {}

CTextView::CTextView(const String& text) : CTextView(text.view()) {}

CTextView::CTextView(const IString& text) : CTextView(text.view()) {}

}  // namespace orlo
