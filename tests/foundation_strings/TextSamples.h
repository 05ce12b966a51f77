#pragma once

#include "foundation/StringObject.h"

#include <gtest/gtest.h>

#include <clocale>
#include <ostream>
#include <string>
#include <vector>

namespace orlo {

inline void PrintTo(const String& text, std::ostream* out) {
  *out << (text.isNull() ? "null string" : '"' + toStdString(text) + '"');
}
inline void PrintTo(const CStringPos& pos, std::ostream* out) {
  *out << '(' << pos.index << ", " << pos.byteOffset << ')';
}

}  // namespace orlo

namespace samples {

using namespace orlo;

inline String textOf(const std::u32string& codePoints) {
  return P<IString>(makeObject<CUTF32String>(codePoints.data(), CString::Storage::copy,
                                             static_cast<int>(codePoints.size() * sizeof(char32_t))));
}

/// Bytes as they are, in the encoding.
inline String bytes(const std::string& content, const P<ICharEncoding>& encoding) {
  return P<IString>(
      makeObject<CString>(content.data(), static_cast<int>(content.size()), CString::Storage::copy, true, encoding));
}

inline std::u32string codePoints(const String& text) {
  std::u32string result;
  CStringPos pos;
  while (const auto codePoint = text.next(pos)) result += *codePoint;
  return result;
}

inline std::string content(const String& text) {
  return {static_cast<const char*>(text.getData()), static_cast<std::size_t>(text.getByteSize())};
}

inline const unsigned char* raw(const std::string& content) {
  return reinterpret_cast<const unsigned char*>(content.data());
}

/// The code page is UTF-8, or plain bytes, as long as this lives.
class CLocale {
public:
  explicit CLocale(const char* name = "C.UTF-8") {
    if (!std::setlocale(LC_CTYPE, name)) ADD_FAILURE() << "no locale " << name;
  }
  ~CLocale() { std::setlocale(LC_CTYPE, "C"); }
  CLocale(const CLocale&) = delete;
  CLocale& operator=(const CLocale&) = delete;
};

struct CForm {
  const char* name;
  String (*convert)(const String&);
  P<ICharEncoding>& (*encoding)();
};

inline void PrintTo(const CForm& form, std::ostream* out) {
  *out << form.name;
}

inline const std::vector<CForm>& forms() {
  static const std::vector<CForm> all = {{"Latin1", toLatin1, getLatin1CharEncoding},
                                         {"UTF8", toUTF8, getUTF8CharEncoding},
                                         {"UTF16", toWide, getUTF16CharEncoding},
                                         {"UTF32", toUTF32, getUTF32CharEncoding},
                                         {"CodePage", toCodePage, getCPCharEncoding}};
  return all;
}

}  // namespace samples
