#include "foundation/CodePointReader.h"
#include "foundation/String.h"
#include "foundation/TextBuilder.h"
#include "foundation/Unicode.h"

namespace orlo::text {

namespace {

String mapped(const CTextView& text, char32_t (*map)(char32_t)) {
  CTextBuilder result(*text.encoding);
  CCodePointReader reader(text);
  for (char32_t codePoint; reader.read(codePoint);) {
    const char32_t other = map(codePoint);
    result.append(text.encoding->getEncodedSize(other) > 0 ? other : codePoint);
  }
  return result.build();
}

}  // namespace

String replace(const CTextView& text, const CTextView& from, const CTextView& to, Case mode, CStringPos start,
               CStringPos end) {
  CTextBuilder result(*text.encoding);
  const int fromLength = length(from);
  CStringPos kept;
  for (CStringPos rest = start; fromLength > 0 && !rest.isEnd();) {
    const CStringPos hit = find(text, from, mode, rest, end);
    if (hit.isEnd()) break;
    result.append(part(text, kept, hit));
    result.append(to);
    kept = rest = advance(text, hit, fromLength);
  }
  result.append(part(text, kept, CStringPos::end()));
  return result.build();
}

String toLower(const CTextView& text) {
  return mapped(text, unicode::toLower);
}

String toUpper(const CTextView& text) {
  return mapped(text, unicode::toUpper);
}

}  // namespace orlo::text
