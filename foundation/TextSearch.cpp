#include "foundation/TextReaders.h"

#include <bitset>

namespace orlo::text {

namespace {

using Direction = CCodePointReader::Direction;

/// The characters of a set, ready to be asked often.
class CMembers {
public:
  CMembers(const CTextView& set, Case mode) : set_(set), mode_(mode), others_(set) {
    for (char32_t member; others_.read(member);) {
      member = key(member, mode);
      if (member < low_.size())
        low_.set(member);
      else
        hasOthers_ = true;
    }
  }

  bool contain(char32_t codePoint) {
    codePoint = key(codePoint, mode_);
    if (codePoint < low_.size()) return low_[codePoint];
    if (!hasOthers_) return false;
    others_.seek({});
    for (char32_t member; others_.read(member);)
      if (key(member, mode_) == codePoint) return true;
    return false;
  }

private:
  CTextView set_;
  Case mode_;
  CCodePointReader others_;
  std::bitset<256> low_;
  bool hasOthers_ = false;
};

/// A place in a part of the text as a place in the text.
CStringPos inWhole(const CTextView& text, CStringPos start, const CTextView& range, CStringPos at) {
  const int offset = range.encoding->findValid(range.data, range.byteSize, at.byteOffset);
  return {start.index + at.index, static_cast<int>(range.data - text.data) + offset};
}

/// The first character on the way for which accept(codePoint, position) is true.
template <class ReaderOf, class Accept>
CStringPos search(ReaderOf readerOf, Direction direction, Accept accept) {
  auto reader = readerOf(direction == Direction::forwards ? CStringPos{} : CStringPos::end(), direction);
  for (char32_t codePoint; reader.read(codePoint);)
    if (accept(codePoint, reader)) return reader.lastPosition();
  return CStringPos::end();
}

CStringPos searchWalking(const CTextView& range, const CTextView& what, Case mode, Direction direction) {
  return withReaderOf(range, [&](auto readerOf) {
    return withReaderOf(what, [&](auto whatReaderOf) {
      auto wanted = whatReaderOf();
      char32_t first;
      if (!wanted.read(first)) return search(readerOf, direction, [](char32_t, auto&) { return true; });
      first = key(first, mode);
      auto candidate = readerOf();
      return search(readerOf, direction, [&](char32_t codePoint, auto& reader) {
        if (key(codePoint, mode) != first) return false;
        candidate.seek(reader.lastPosition());
        wanted.seek({});
        return compareFrom(wanted, candidate, mode, -1, true) == 0;
      });
    });
  });
}

CStringPos searchText(const CTextView& text, const CTextView& what, Case mode, CStringPos start, CStringPos end,
                      Direction direction) {
  const CTextView range = part(text, start, end);
  const auto bytes = mode == Case::sensitive ? asBytes(range) : std::nullopt;
  const auto wanted = bytes ? asBytes(what) : std::nullopt;
  CStringPos at = CStringPos::end();
  if (wanted && !wanted->empty()) {
    const std::size_t offset = direction == Direction::forwards ? bytes->find(*wanted) : bytes->rfind(*wanted);
    if (offset != std::string_view::npos) at = {static_cast<int>(offset), static_cast<int>(offset)};
  } else {
    at = searchWalking(range, what, mode, direction);
  }
  return at.isEnd() ? at : inWhole(text, start, range, at);
}

CStringPos searchMember(const CTextView& text, const CTextView& set, Member member, Case mode, CStringPos start,
                        CStringPos end, Direction direction) {
  const CTextView range = part(text, start, end);
  CMembers members(set, mode);
  const CStringPos at = withReaderOf(range, [&](auto readerOf) {
    return search(readerOf, direction,
                  [&](char32_t codePoint, auto&) { return members.contain(codePoint) == (member == Member::in); });
  });
  return at.isEnd() ? at : inWhole(text, start, range, at);
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
