#include "foundation/URIEscape.h"

#include "foundation/CodePointReader.h"
#include "foundation/StandardUTF8.h"
#include "foundation/StringObject.h"

#include <algorithm>
#include <cwchar>
#include <limits>
#include <stdexcept>

namespace orlo {

namespace {

constexpr std::size_t kEscapeLength = 3;

bool isUnreserved(char32_t codePoint) {
  const auto within = [codePoint](char32_t first, char32_t last) { return codePoint >= first && codePoint <= last; };
  if (within('a', 'z') || within('A', 'Z') || within('0', '9')) return true;
  return codePoint < 0x80 && std::string_view("-_.!~*'()").find(static_cast<char>(codePoint)) != std::string_view::npos;
}

bool isAllowed(char32_t codePoint, const wchar_t* allowed) {
  if (isUnreserved(codePoint)) return true;
  return allowed && codePoint != 0 && std::wcschr(allowed, static_cast<wchar_t>(codePoint)) != nullptr;
}

void appendByte(std::u16string& result, unsigned char byte) {
  constexpr char16_t kDigits[] = u"0123456789ABCDEF";
  result += {u'%', kDigits[byte >> 4], kDigits[byte & 0xF]};
}

void appendCharacter(std::u16string& result, char32_t codePoint) {
  if (codePoint < 0x10000) {
    result += static_cast<char16_t>(codePoint);
  } else {
    result += static_cast<char16_t>(0xD7C0 + (codePoint >> 10));
    result += static_cast<char16_t>(0xDC00 + (codePoint & 0x3FF));
  }
}

/// Calls onCharacter with each code point, onByte with each byte of a UTF-8 text that is no part of one.
template <class OnCharacter, class OnByte>
void walk(const CTextView& text, OnCharacter onCharacter, OnByte onByte) {
  char32_t codePoint = 0;
  if (text.encoding->getId() != kUTF8Tag) {
    CCodePointReader reader(text);
    while (reader.read(codePoint)) onCharacter(codePoint);
    return;
  }
  for (int pos = 0; pos < text.byteSize;) {
    const int behind = readStandardUTF8(codePoint, text.data, text.byteSize, pos);
    if (behind > 0)
      onCharacter(codePoint);
    else
      onByte(text.data[pos]);
    pos = behind > 0 ? behind : pos + 1;
  }
}

int hexDigit(char16_t unit) {
  if (unit >= '0' && unit <= '9') return unit - '0';
  if (unit >= 'A' && unit <= 'F') return unit - 'A' + 10;
  if (unit >= 'a' && unit <= 'f') return unit - 'a' + 10;
  return -1;
}

/// Reads the run of escapes at pos as one character. Answers how many escapes it takes, 0 if it is none.
std::size_t readEscaped(char32_t& codePoint, std::u16string_view text, std::size_t pos) {
  const int lead = uri::escapedByteAt(text, pos);
  const int length = lead < 0 ? 0 : standardUTF8Length(static_cast<unsigned char>(lead));
  unsigned char bytes[4];
  for (int i = 0; i < length; ++i) {
    const int byte = uri::escapedByteAt(text, pos + static_cast<std::size_t>(i) * kEscapeLength);
    if (byte < 0) return 0;
    bytes[i] = static_cast<unsigned char>(byte);
  }
  return readStandardUTF8(codePoint, bytes, length, 0) > 0 ? static_cast<std::size_t>(length) : 0;
}

}  // namespace

namespace uri {

String toWideText(const String& text) {
  if (text.isNull()) return toWide(text);
  if (text.hasEncoding(kUTF16Tag) && reinterpret_cast<std::uintptr_t>(text.getData()) % alignof(char16_t) == 0)
    return text;
  std::u16string units;
  units.reserve(static_cast<std::size_t>(text.getByteSize()));
  walk(
      text, [&](char32_t codePoint) { appendCharacter(units, codePoint); },
      [&](unsigned char byte) { appendByte(units, byte); });
  return fromUnits(units);
}

String fromUnits(std::u16string_view text) {
  if (text.size() > std::numeric_limits<int>::max() / sizeof(char16_t))
    throw std::length_error("text of 2 GiB or more");
  const bool surrogates =
      std::any_of(text.begin(), text.end(), [](char16_t unit) { return (unit & 0xF800) == 0xD800; });
  const int size = static_cast<int>(text.size());
  return P<IString>(
      makeObject<CWCharString>(text.data(), CString::Storage::copy, size * 2, true, surrogates ? -1 : size));
}

std::u16string_view unitsOf(const String& text) {
  return {static_cast<const char16_t*>(text.getData()), static_cast<std::size_t>(text.getByteSize()) / 2};
}

int escapedByteAt(std::u16string_view text, std::size_t pos) {
  if (text.size() < kEscapeLength || pos > text.size() - kEscapeLength || text[pos] != u'%') return -1;
  const int high = hexDigit(text[pos + 1]);
  const int low = hexDigit(text[pos + 2]);
  return high < 0 || low < 0 ? -1 : high << 4 | low;
}

std::size_t appendUTF8(std::string& bytes, std::u16string_view text) {
  const bool pair = text.size() > 1 && (text[0] & 0xFC00) == 0xD800 && (text[1] & 0xFC00) == 0xDC00;
  const char32_t codePoint = pair ? 0x10000u + ((text[0] & 0x3FFu) << 10) + (text[1] & 0x3FFu) : text[0];
  unsigned char character[4];
  bytes.append(reinterpret_cast<const char*>(character),
               static_cast<std::size_t>(writeStandardUTF8(codePoint, character)));
  return pair ? 2 : 1;
}

std::u16string unescape(std::u16string_view text) {
  std::u16string result;
  result.reserve(text.size());
  for (std::size_t pos = 0; pos < text.size();) {
    char32_t codePoint = 0;
    const std::size_t count = readEscaped(codePoint, text, pos);
    if (count > 0)
      appendCharacter(result, codePoint);
    else
      result += text[pos];
    pos += count > 0 ? count * kEscapeLength : 1;
  }
  return result;
}

}  // namespace uri

String uriEscape(const String& text, const wchar_t* allowed) {
  if (text.isNull()) return toWide(text);
  std::u16string result;
  walk(
      text,
      [&](char32_t codePoint) {
        if (isAllowed(codePoint, allowed)) {
          appendCharacter(result, codePoint);
          return;
        }
        unsigned char bytes[4];
        const int size = writeStandardUTF8(codePoint, bytes);
        for (int i = 0; i < size; ++i) appendByte(result, bytes[i]);
      },
      [&](unsigned char byte) { appendByte(result, byte); });
  return uri::fromUnits(result);
}

String uriUnescape(const String& text) {
  const String wide = uri::toWideText(text);
  const std::u16string_view units = uri::unitsOf(wide);
  if (units.find(u'%') == std::u16string_view::npos) return wide;
  return uri::fromUnits(uri::unescape(units));
}

}  // namespace orlo
