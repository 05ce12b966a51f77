#include "foundation/CodePointReader.h"
#include "foundation/TextAlgorithms.h"
#include "foundation/Unicode.h"

namespace orlo::text {

namespace {

using Direction = CCodePointReader::Direction;

bool same(char32_t a, char32_t b, Case mode) {
  return a == b || (mode == Case::ignored && unicode::toLower(a) == unicode::toLower(b));
}

/// The first character on the way through the part for which accept(codePoint, rest) is true. rest() is the text from
/// that character to the end of the part.
template <class Accept>
CStringPos search(const CTextView& text, CStringPos start, CStringPos end, Direction direction, Accept accept) {
  const CTextView range = part(text, start, end);
  CCodePointReader reader(range, direction == Direction::forwards ? CStringPos{} : CStringPos::end(), direction);
  for (char32_t codePoint; reader.read(codePoint);) {
    const auto rest = [&] { return part(range, reader.lastPosition(), CStringPos::end()); };
    if (!accept(codePoint, rest)) continue;
    const CStringPos at = reader.lastPosition();
    const int offset = range.encoding->findValid(range.data, range.byteSize, at.byteOffset);
    return {start.index + at.index, static_cast<int>(range.data - text.data) + offset};
  }
  return CStringPos::end();
}

CStringPos searchText(const CTextView& text, const CTextView& what, Case mode, CStringPos start, CStringPos end,
                      Direction direction) {
  CStringPos second;
  const std::optional<char32_t> first = next(what, second);
  return search(text, start, end, direction, [&](char32_t codePoint, auto rest) {
    return !first || (same(codePoint, *first, mode) && startsWith(rest(), what, mode));
  });
}

CStringPos searchMember(const CTextView& text, const CTextView& set, Member member, Case mode, CStringPos start,
                        CStringPos end, Direction direction) {
  CCodePointReader members(set);
  return search(text, start, end, direction, [&](char32_t codePoint, auto) {
    members.seek({});
    bool found = false;
    for (char32_t candidate; !found && members.read(candidate);) found = same(codePoint, candidate, mode);
    return found == (member == Member::in);
  });
}

}  // namespace

CStringPos find(const CTextView& text, const CTextView& what, Case mode, CStringPos start, CStringPos end) {
  return searchText(text, what, mode, start, end, Direction::forwards);
}

CStringPos findLast(const CTextView& text, const CTextView& what, Case mode, CStringPos start, CStringPos end) {
  return searchText(text, what, mode, start, end, Direction::backwards);
}

CStringPos findOf(const CTextView& text, const CTextView& set, Member member, Case mode, CStringPos start,
                  CStringPos end) {
  return searchMember(text, set, member, mode, start, end, Direction::forwards);
}

CStringPos findLastOf(const CTextView& text, const CTextView& set, Member member, Case mode, CStringPos start,
                      CStringPos end) {
  return searchMember(text, set, member, mode, start, end, Direction::backwards);
}

}  // namespace orlo::text
