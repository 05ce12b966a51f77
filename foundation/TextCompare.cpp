#include "foundation/CodePointReader.h"
#include "foundation/TextAlgorithms.h"
#include "foundation/Unicode.h"

#include <cstring>

namespace orlo::text {

namespace {

bool sameBytes(const CTextView& left, const CTextView& right) {
  return left.encoding == right.encoding && left.byteSize == right.byteSize &&
         (left.byteSize == 0 || std::memcmp(left.data, right.data, static_cast<std::size_t>(left.byteSize)) == 0);
}

}  // namespace

int compare(const CTextView& left, const CTextView& right, Case mode, int maxCount, bool prefixOnly) {
  if (sameBytes(left, right)) return 0;
  CCodePointReader leftReader(left);
  CCodePointReader rightReader(right);
  for (int count = 0; maxCount < 0 || count < maxCount; ++count) {
    char32_t a;
    char32_t b;
    const bool leftGoesOn = leftReader.read(a);
    if (!leftGoesOn && prefixOnly) return 0;
    const bool rightGoesOn = rightReader.read(b);
    if (!leftGoesOn || !rightGoesOn) return leftGoesOn - rightGoesOn;
    if (a == b) continue;
    if (mode == Case::ignored) {
      a = unicode::toLower(a);
      b = unicode::toLower(b);
    }
    if (a != b) return a < b ? -1 : 1;
  }
  return 0;
}

bool equals(const CTextView& left, const CTextView& right, Case mode) {
  // Case mappings are one to one, so the lengths tell in both modes.
  if (left.length >= 0 && right.length >= 0 && left.length != right.length) return false;
  return compare(left, right, mode) == 0;
}

bool startsWith(const CTextView& text, const CTextView& start, Case mode) {
  return compare(start, text, mode, -1, true) == 0;
}

bool endsWith(const CTextView& text, const CTextView& end, Case mode) {
  // Forwards, since not every encoding can be walked backwards.
  const int skipped = length(text) - length(end);
  return skipped >= 0 && compare(part(text, positionAt(text, skipped), CStringPos::end()), end, mode) == 0;
}

std::int32_t hash(const CTextView& text) {
  CCodePointReader reader(text);
  std::int32_t h = 0;
  for (char32_t c; reader.read(c);)
    h = ((h & 0x0FFFFFFF) << 3) ^ (((h >> 2) ^ static_cast<std::int32_t>(c)) & 0x7FFFFFFF);
  return h;
}

}  // namespace orlo::text
