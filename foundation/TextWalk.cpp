#include "foundation/CodePointReader.h"
#include "foundation/TextAlgorithms.h"

#include <algorithm>

namespace orlo::text {

namespace {

using Direction = CCodePointReader::Direction;

/// A position that stands where a character starts, or is the end.
CStringPos settled(const CTextView& text, CStringPos pos) {
  const int start = text.encoding->findValid(text.data, text.byteSize, pos.byteOffset);
  return start < 0 ? CStringPos::end() : CStringPos{pos.index, start};
}

}  // namespace

int length(const CTextView& text) {
  return text.length >= 0 ? text.length : text.encoding->countChars(text.data, text.byteSize, 0);
}

int characterSize(const CTextView& text) {
  if (text.length < 0) return 0;
  const int unit = text.encoding->getEncodedSize(0);
  return static_cast<std::int64_t>(text.length) * unit == text.byteSize ? unit : 0;
}

CTextView part(const CTextView& text, CStringPos start, CStringPos end) {
  if (start == CStringPos{} && end.isEnd()) return text;
  const int from = start.isEnd() ? text.byteSize : std::clamp(start.byteOffset, 0, text.byteSize);
  const int to = end.isEnd() ? text.byteSize : std::clamp(end.byteOffset, from, text.byteSize);
  // A number of characters that the bytes cannot hold comes from positions of another text.
  const std::int64_t endIndex = end.isEnd() ? text.length : end.index;
  const std::int64_t count = endIndex < 0 ? -1 : endIndex - start.index;
  const bool possible = count >= 0 && count <= to - from;
  return {text.data + from, to - from, from == to ? 0 : possible ? static_cast<int>(count) : -1, *text.encoding};
}

CStringPos positionAt(const CTextView& text, int index) {
  return index < 0 ? CStringPos::end() : advance(text, {}, index);
}

CStringPos advance(const CTextView& text, CStringPos pos, int count) {
  const bool backwards = count < 0;
  const std::int64_t unit = backwards && !text.encoding->canWalkBackwards() ? 0 : characterSize(text);
  if (unit > 0 && pos.byteOffset % unit == 0) {
    const std::int64_t to = (pos.isEnd() ? text.byteSize : pos.byteOffset) + count * unit;
    if (to < 0 || to >= text.byteSize) return CStringPos::end();
    return {static_cast<int>(to / unit), static_cast<int>(to)};
  }
  CCodePointReader reader(text, pos, backwards ? Direction::backwards : Direction::forwards);
  for (char32_t codePoint; count != 0; count += backwards ? 1 : -1)
    if (!reader.read(codePoint)) return CStringPos::end();
  return settled(text, reader.position());
}

std::optional<char32_t> next(const CTextView& text, CStringPos& pos) {
  char32_t codePoint;
  const int behind = pos.isEnd() ? -1 : text.encoding->decode(codePoint, text.data, text.byteSize, pos.byteOffset);
  if (behind < 0) {
    pos = CStringPos::end();
    return std::nullopt;
  }
  pos = settled(text, {pos.index + 1, behind});
  return codePoint;
}

std::optional<char32_t> previous(const CTextView& text, CStringPos& pos) {
  const CStringPos from = pos.isEnd() ? CStringPos{length(text), text.byteSize} : pos;
  char32_t codePoint;
  const int start = text.encoding->decodeBackwards(codePoint, text.data, text.byteSize, from.byteOffset);
  if (start < 0) return std::nullopt;
  pos = {from.index - 1, start};
  return codePoint;
}

}  // namespace orlo::text
