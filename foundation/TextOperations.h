#pragma once

#include "foundation/TextAlgorithms.h"

namespace orlo {

/// The operations of every text, for classes that have a view(). All count in characters, skip invalid bytes, and work
/// across encodings. Those with a start and an end look at the part between the two positions only, which stands for
/// the whole text if they are left out; results are positions in the whole text. Ignoring case means comparing by the
/// simple lower-case mapping of Unicode.
///
/// Walking towards the start of a code-page text throws CMethodNotImplementedError: previous, a negative count of
/// advance, and all findLast forms do that.
template <class Self>
class TTextOperations {
public:
  int length() const { return text::length(view()); }
  bool isEmpty() const { return length() == 0; }

  P<ICharEncoding> getEncoding() const { return view().encoding; }
  std::uint32_t getEncodingId() const { return view().encoding->getId(); }
  bool hasEncoding(std::uint32_t tag) const { return getEncodingId() == tag; }

  /// The bytes as they are, valid as long as the text lives.
  const void* getData() const { return view().data; }
  int getByteSize() const { return view().byteSize; }

  /// The end position if there is no such index.
  CStringPos positionAt(int index) const { return text::positionAt(view(), index); }
  /// The end position if the text does not reach that far, in either direction.
  CStringPos advance(CStringPos pos, int count) const { return text::advance(view(), pos, count); }
  /// The character at pos, which is moved behind it; nothing at the end.
  std::optional<char32_t> next(CStringPos& pos) const { return text::next(view(), pos); }
  /// The character before pos, which is moved to it; nothing at the start.
  std::optional<char32_t> previous(CStringPos& pos) const { return text::previous(view(), pos); }
  std::optional<char32_t> charAt(CStringPos pos) const { return next(pos); }
  std::optional<char32_t> charAt(int index) const { return charAt(positionAt(index)); }

  /// -1, 0 or 1 by code points; a text that goes on is greater.
  int compare(const CTextView& other, CStringPos start = {}, CStringPos end = CStringPos::end()) const {
    return text::compare(part(start, end), other, text::Case::sensitive);
  }
  int compareIgnoreCase(const CTextView& other, CStringPos start = {}, CStringPos end = CStringPos::end()) const {
    return text::compare(part(start, end), other, text::Case::ignored);
  }

  bool equals(const CTextView& other, CStringPos start = {}, CStringPos end = CStringPos::end()) const {
    return text::equals(part(start, end), other, text::Case::sensitive);
  }
  bool equalsIgnoreCase(const CTextView& other, CStringPos start = {}, CStringPos end = CStringPos::end()) const {
    return text::equals(part(start, end), other, text::Case::ignored);
  }

  bool startsWith(const CTextView& what, CStringPos start = {}, CStringPos end = CStringPos::end()) const {
    return text::startsWith(part(start, end), what, text::Case::sensitive);
  }
  bool startsWithIgnoreCase(const CTextView& what, CStringPos start = {}, CStringPos end = CStringPos::end()) const {
    return text::startsWith(part(start, end), what, text::Case::ignored);
  }
  bool endsWith(const CTextView& what, CStringPos start = {}, CStringPos end = CStringPos::end()) const {
    return text::endsWith(part(start, end), what, text::Case::sensitive);
  }
  bool endsWithIgnoreCase(const CTextView& what, CStringPos start = {}, CStringPos end = CStringPos::end()) const {
    return text::endsWith(part(start, end), what, text::Case::ignored);
  }

  /// The start of the first or last occurrence; the end position if there is none. The empty text occurs at every
  /// character.
  CStringPos find(const CTextView& what, CStringPos start = {}, CStringPos end = CStringPos::end()) const {
    return text::find(view(), what, text::Case::sensitive, start, end);
  }
  CStringPos findIgnoreCase(const CTextView& what, CStringPos start = {}, CStringPos end = CStringPos::end()) const {
    return text::find(view(), what, text::Case::ignored, start, end);
  }
  CStringPos findLast(const CTextView& what, CStringPos start = {}, CStringPos end = CStringPos::end()) const {
    return text::findLast(view(), what, text::Case::sensitive, start, end);
  }
  CStringPos findLastIgnoreCase(const CTextView& what, CStringPos start = {},
                                CStringPos end = CStringPos::end()) const {
    return text::findLast(view(), what, text::Case::ignored, start, end);
  }

  /// The first or last character that is one of the given ones, or that is none of them.
  CStringPos findAnyOf(const CTextView& set, CStringPos start = {}, CStringPos end = CStringPos::end()) const {
    return text::findOf(view(), set, text::Member::in, text::Case::sensitive, start, end);
  }
  CStringPos findAnyOfIgnoreCase(const CTextView& set, CStringPos start = {},
                                 CStringPos end = CStringPos::end()) const {
    return text::findOf(view(), set, text::Member::in, text::Case::ignored, start, end);
  }
  CStringPos findNoneOf(const CTextView& set, CStringPos start = {}, CStringPos end = CStringPos::end()) const {
    return text::findOf(view(), set, text::Member::notIn, text::Case::sensitive, start, end);
  }
  CStringPos findNoneOfIgnoreCase(const CTextView& set, CStringPos start = {},
                                  CStringPos end = CStringPos::end()) const {
    return text::findOf(view(), set, text::Member::notIn, text::Case::ignored, start, end);
  }
  CStringPos findLastAnyOf(const CTextView& set, CStringPos start = {}, CStringPos end = CStringPos::end()) const {
    return text::findLastOf(view(), set, text::Member::in, text::Case::sensitive, start, end);
  }
  CStringPos findLastAnyOfIgnoreCase(const CTextView& set, CStringPos start = {},
                                     CStringPos end = CStringPos::end()) const {
    return text::findLastOf(view(), set, text::Member::in, text::Case::ignored, start, end);
  }
  CStringPos findLastNoneOf(const CTextView& set, CStringPos start = {}, CStringPos end = CStringPos::end()) const {
    return text::findLastOf(view(), set, text::Member::notIn, text::Case::sensitive, start, end);
  }
  CStringPos findLastNoneOfIgnoreCase(const CTextView& set, CStringPos start = {},
                                      CStringPos end = CStringPos::end()) const {
    return text::findLastOf(view(), set, text::Member::notIn, text::Case::ignored, start, end);
  }

  /// Made of the code points, so texts that are equal have the same hash in every encoding.
  std::int32_t getHash() const { return text::hash(view()); }

  /// The part between two positions, without a copy: a slice, which keeps this text alive. Empty if the first is behind
  /// the second.
  String substring(CStringPos start, CStringPos end = CStringPos::end()) const;
  /// The same by index. A count behind the end goes to the end; an index that does not exist or a negative count gives
  /// an empty slice.
  String substring(int index, int count) const;

  /// A slice without the characters at the ends named that are in the set; the empty string if none is left.
  String strip(const CTextView& set, bool left = true, bool right = true, bool ignoreCase = false) const;
  String strip(char32_t codePoint, bool left = true, bool right = true, bool ignoreCase = false) const;

  /// A new text in this one's encoding, with every occurrence replaced from left to right. The empty text is not
  /// replaced. What is not between the two positions stays as it is.
  String replace(const CTextView& from, const CTextView& to, CStringPos start = {},
                 CStringPos end = CStringPos::end()) const;
  String replaceIgnoreCase(const CTextView& from, const CTextView& to, CStringPos start = {},
                           CStringPos end = CStringPos::end()) const;

  /// A new text in this one's encoding. A character whose other case the encoding cannot hold stays as it is.
  String toLower() const;
  String toUpper() const;

protected:
  TTextOperations() = default;
  ~TTextOperations() = default;
  TTextOperations(const TTextOperations&) = default;
  TTextOperations& operator=(const TTextOperations&) = default;

private:
  CTextView view() const { return static_cast<const Self*>(this)->view(); }
  CTextView part(CStringPos start, CStringPos end) const { return text::part(view(), start, end); }
};

}  // namespace orlo
