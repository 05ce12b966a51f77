#include "foundation/String.h"

#include "foundation/Cast.h"
#include "foundation/Singleton.h"
#include "foundation/StringObject.h"
#include "foundation/TextBuilder.h"

#include <limits>
#include <stdexcept>
#include <type_traits>

namespace orlo {

namespace {

/// As wide as wchar_t.
using CWideString = std::conditional_t<sizeof(wchar_t) == sizeof(char16_t), CWCharString, CUTF32String>;

template <class Text>
const P<IString>& nullString() {
  static TSingleton<IString> singleton;
  return singleton.get([] { return P<IString>(makeObject<TNullString<typename Text::Unit, Text>>()); });
}

const P<IString>& emptyString() {
  static TSingleton<IString> singleton;
  return singleton.get([] { return P<IString>(makeObject<CWCharString>(u"")); });
}

template <class Text>
P<IString> referTo(const typename Text::Unit* text) {
  if (!text) return nullString<Text>();
  P<IString> result;
  result.attach(new Text(text));
  return result;
}

template <class Text>
String converted(const String& text) {
  ICharEncoding& encoding = *Text::getClassEncoding();
  if (text.hasEncoding(encoding.getId())) return text.isTerminated() ? text : text.toTerminated();
  if (text.isNull()) return nullString<Text>();
  CTextBuilder builder(encoding);
  builder.append(text);
  P<IString> result;
  result.attach(
      new Text(reinterpret_cast<const typename Text::Unit*>(builder.data()), CString::Storage::copy, builder.size()));
  return result;
}

}  // namespace

int IString::compare(PC<IBase> other) const {
  if (!other) return 1;
  return compare(*cast<IString>(other));
}

String::String() : text_(emptyString()) {}

String::String(std::nullptr_t) : text_(nullString<CWCharString>()) {}

String::String(const char* latin1) : text_(latin1 ? referTo<CLatin1String>(latin1) : nullString<CWCharString>()) {}

String::String(const wchar_t* wide) : text_(referTo<CWideString>(reinterpret_cast<const CWideString::Unit*>(wide))) {}

String::String(const char16_t* utf16) : text_(referTo<CWCharString>(utf16)) {}

String::String(const char8_t* utf8) : text_(referTo<CUTF8String>(utf8)) {}

String::String(const char32_t* utf32) : text_(referTo<CUTF32String>(utf32)) {}

String::String(P<IString> text) : text_(std::move(text)) {
  if (!text_) text_ = nullString<CWCharString>();
}

String& String::operator+=(const CTextView& other) {
  return *this = *this + other;
}

String operator+(const String& left, const CTextView& right) {
  CTextBuilder result(*left.view().encoding);
  result.append(left);
  result.append(right);
  return result.build();
}

String asString(const PC<IBase>& object) {
  // A text never changes, so it may be held as one that could.
  return P<IString>(const_cast<IString*>(cast<IString>(object)));
}

String fromUTF8(std::string_view utf8) {
  if (utf8.size() > std::numeric_limits<int>::max()) throw std::length_error("text of 2 GiB or more");
  return terminatedCopy({utf8.data(), static_cast<int>(utf8.size()), -1, *getUTF8CharEncoding()});
}

std::string toStdString(const String& text) {
  const String utf8 = toUTF8(text);
  return {static_cast<const char*>(utf8.getData()), static_cast<std::size_t>(utf8.getByteSize())};
}

String toWide(const String& text) {
  return converted<CWCharString>(text);
}

String toCodePage(const String& text) {
  return converted<CCPString>(text);
}

String toUTF8(const String& text) {
  return converted<CUTF8String>(text);
}

String toLatin1(const String& text) {
  return converted<CLatin1String>(text);
}

String toUTF32(const String& text) {
  return converted<CUTF32String>(text);
}

String toWChar(const String& text) {
  return converted<CWideString>(text);
}

}  // namespace orlo
