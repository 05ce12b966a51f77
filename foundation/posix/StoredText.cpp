#include "foundation/posix/StoredText.h"

#include "foundation/StandardUTF8.h"
#include "foundation/TextBuilder.h"
#include "foundation/Unicode.h"

#include <optional>

namespace orlo::posix {

namespace {

/// Takes the next character off the text, and passes over bytes that are none. Nothing at the end.
std::optional<char32_t> take(std::string_view& text) {
  while (!text.empty()) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
    const int size = static_cast<int>(std::min<std::size_t>(text.size(), 4));
    char32_t c = 0;
    if (const int behind = readStandardUTF8(c, bytes, size, 0); behind > 0) {
      text.remove_prefix(static_cast<std::size_t>(behind));
      return c;
    }
    if (size > 2 && bytes[0] == 0xED && bytes[1] >= 0xA0 && bytes[1] < 0xC0 && (bytes[2] & 0xC0) == 0x80) {
      c = 0xD000u | (bytes[1] & 0x3Fu) << 6 | (bytes[2] & 0x3Fu);
      text.remove_prefix(3);
      return c;
    }
    text.remove_prefix(1);
  }
  return std::nullopt;
}

}  // namespace

void appendStored(std::string& text, char32_t codePoint) {
  unsigned char bytes[4];
  const int size = writeStandardUTF8(codePoint, bytes);
  text.append(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size));
}

std::string toStoredText(const String& text) {
  const std::string bytes = toStdString(text);
  std::string result;
  for (std::string_view rest = bytes; const auto c = take(rest);) appendStored(result, *c);
  return result;
}

String fromStoredText(std::string_view text) {
  CTextBuilder builder(*getUTF16CharEncoding());
  while (const auto c = take(text)) builder.append(*c);
  return builder.build();
}

std::string foldedText(std::string_view text) {
  std::string result;
  while (const auto c = take(text)) appendStored(result, unicode::toLower(*c));
  return result;
}

}  // namespace orlo::posix
