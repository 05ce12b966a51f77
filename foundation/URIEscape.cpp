#include "foundation/URIEscape.h"

#include "foundation/CodePointReader.h"
#include "foundation/StandardUTF8.h"
#include "foundation/StringObject.h"
#include "foundation/UTF16CharEncoding.h"

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <limits>
#include <memory>
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

/// The text that write(units) puts into the room for that many units; it answers how many it has written.
template <class Write>
String written(std::size_t most, Write write) {
  if (most > std::numeric_limits<int>::max() / sizeof(char16_t) - 1) throw std::length_error("text of 2 GiB or more");
  auto bytes = std::make_unique_for_overwrite<unsigned char[]>((most + 1) * sizeof(char16_t));
  auto* units = reinterpret_cast<char16_t*>(bytes.get());
  const std::size_t size = write(units);
  units[size] = 0;
  char16_t surrogates = 0;
  for (std::size_t i = 0; i < size; ++i) surrogates |= static_cast<char16_t>((units[i] & 0xF800) == 0xD800);
  P<IString> result;
  result.attach(new CWCharString(units, CString::Storage::adopt, static_cast<int>(size * sizeof(char16_t)), true,
                                 surrogates ? -1 : static_cast<int>(size)));
  static_cast<void>(bytes.release());
  return result;
}

void appendByte(std::u16string& result, unsigned char byte) {
  constexpr char16_t kDigits[] = u"0123456789ABCDEF";
  result += {u'%', kDigits[byte >> 4], kDigits[byte & 0xF]};
}

/// Answers the place behind the character.
char16_t* write(char32_t codePoint, char16_t* place) {
  CUTF16CharEncoding::write(codePoint, reinterpret_cast<unsigned char*>(place));
  return place + CUTF16CharEncoding::sizeOf(codePoint) / 2;
}

void appendCharacter(std::u16string& result, char32_t codePoint) {
  char16_t units[2];
  result.append(units, write(codePoint, units));
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

/// Copies units up to the first "%", four at a time; it may stop up to three units earlier.
std::size_t copyPlain(std::u16string_view text, char16_t* place) {
  constexpr std::uint64_t kOnes = 0x0001000100010001;
  constexpr std::uint64_t kHighBits = kOnes << 15;
  std::size_t pos = 0;
  for (std::uint64_t block; pos + 4 <= text.size(); pos += 4) {
    std::memcpy(&block, text.data() + pos, sizeof block);
    const std::uint64_t difference = block ^ (kOnes * u'%');
    if (((difference - kOnes) & ~difference & kHighBits) != 0) break;
    std::memcpy(place + pos, &block, sizeof block);
  }
  return pos;
}

}  // namespace

namespace uri {

String toWideText(const String& text) {
  if (text.isNull()) return toWide(text);
  if (text.hasEncoding(kUTF16Tag) && reinterpret_cast<std::uintptr_t>(text.getData()) % alignof(char16_t) == 0)
    return text;
  const CTextView view = text.view();
  const bool hasLatin1 = text.hasEncoding(kLatin1Tag);
  if (hasLatin1 || (text.hasEncoding(kUTF8Tag) && view.length == view.byteSize)) {
    // Each byte is a character.
    const auto size = static_cast<std::size_t>(view.byteSize);
    return written(size, [&](char16_t* units) {
      std::copy_n(view.data, size, units);
      return size;
    });
  }
  std::u16string units;
  units.reserve(static_cast<std::size_t>(view.byteSize));
  walk(
      view, [&](char32_t codePoint) { appendCharacter(units, codePoint); },
      [&](unsigned char byte) { appendByte(units, byte); });
  return fromUnits(units);
}

String fromUnits(std::u16string_view text) {
  return written(text.size(), [text](char16_t* units) { return text.copy(units, text.size()); });
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
  char32_t codePoint = 0;
  const int size = static_cast<int>(std::min<std::size_t>(text.size(), 2) * sizeof(char16_t));
  const int behind = CUTF16CharEncoding::read(codePoint, reinterpret_cast<const unsigned char*>(text.data()), size, 0);
  unsigned char character[4];
  bytes.append(reinterpret_cast<const char*>(character),
               static_cast<std::size_t>(writeStandardUTF8(codePoint, character)));
  return static_cast<std::size_t>(behind) / sizeof(char16_t);
}

String unescape(std::u16string_view text) {
  return written(text.size(), [text](char16_t* units) {
    char16_t* place = units;
    for (std::size_t pos = 0; pos < text.size();) {
      const std::size_t plain = copyPlain(text.substr(pos), place);
      place += plain;
      pos += plain;
      if (pos == text.size()) break;
      char32_t codePoint = 0;
      const std::size_t count = text[pos] == u'%' ? readEscaped(codePoint, text, pos) : 0;
      place = count > 0 ? write(codePoint, place) : &(*place = text[pos]) + 1;
      pos += count > 0 ? count * kEscapeLength : 1;
    }
    return static_cast<std::size_t>(place - units);
  });
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
  return uri::unescape(units);
}

}  // namespace orlo
