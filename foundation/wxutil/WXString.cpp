#include "foundation/wxutil/WXString.h"

#include "foundation/StringObject.h"

#include <limits>
#include <stdexcept>

namespace wxutil {

wxString toWxString(const orlo::String& text) {
  const orlo::String wide = orlo::toWChar(text);
  return wxString(static_cast<const wchar_t*>(wide.getData()),
                  static_cast<std::size_t>(wide.getByteSize()) / sizeof(wchar_t));
}

orlo::String fromWxString(const wxString& text) {
  constexpr std::size_t mostBytes = std::numeric_limits<int>::max() - sizeof(wchar_t);
  if (text.length() > mostBytes / sizeof(wchar_t)) throw std::length_error("a text of 2 GiB or more");
  const auto byteSize = static_cast<int>(text.length() * sizeof(wchar_t));
  return orlo::P<orlo::IString>(orlo::makeObject<orlo::CString>(static_cast<const wchar_t*>(text.wc_str()), byteSize,
                                                                orlo::CString::Storage::copy, true,
                                                                orlo::getWCharEncoding()));
}

}  // namespace wxutil
