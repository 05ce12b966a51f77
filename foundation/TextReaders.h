#pragma once

#include "foundation/CodePointReader.h"
#include "foundation/TextAlgorithms.h"
#include "foundation/Unicode.h"

#include <algorithm>
#include <string_view>

/// What the algorithms on texts share: they are written once, for readers. Texts whose characters are bytes have a
/// reader of their own, which gives the same characters and positions without decoding.
namespace orlo::text {

/// The bytes of a text in which every byte is a character with the byte's value as its code point; nothing for other
/// texts. Latin-1 is such a text, and UTF-8 that is ASCII alone.
inline std::optional<std::string_view> asBytes(const CTextView& text) {
  const std::uint32_t id = text.encoding->getId();
  if (id != kLatin1Tag && (id != kUTF8Tag || length(text) != text.byteSize)) return std::nullopt;
  return std::string_view(reinterpret_cast<const char*>(text.data), static_cast<std::size_t>(text.byteSize));
}

/// CCodePointReader for such a text.
class CByteReader {
public:
  using Direction = CCodePointReader::Direction;

  explicit CByteReader(std::string_view text, CStringPos start = {}, Direction direction = Direction::forwards)
      : text_(text), direction_(direction) {
    seek(start);
  }

  bool read(char32_t& codePoint) {
    if (direction_ == Direction::forwards) {
      if (next_ == text_.size()) return false;
      codePoint = static_cast<unsigned char>(text_[next_++]);
    } else {
      if (next_ == 0) return false;
      codePoint = static_cast<unsigned char>(text_[--next_]);
    }
    return true;
  }

  CStringPos lastPosition() const {
    const int offset = static_cast<int>(direction_ == Direction::forwards ? next_ - 1 : next_);
    return {offset, offset};
  }
  void seek(CStringPos pos) {
    next_ = pos.isEnd() ? text_.size() : std::min(static_cast<std::size_t>(pos.byteOffset), text_.size());
  }

private:
  std::string_view text_;
  Direction direction_;
  std::size_t next_ = 0;
};

/// Calls the action with a function that makes readers of the text, taking a start and a direction.
template <class Action>
decltype(auto) withReaderOf(const CTextView& text, Action action) {
  if (const auto bytes = asBytes(text)) return action([bytes](auto... where) { return CByteReader(*bytes, where...); });
  return action([&text](auto... where) { return CCodePointReader(text, where...); });
}

inline char32_t key(char32_t codePoint, Case mode) {
  return mode == Case::ignored ? unicode::toLower(codePoint) : codePoint;
}

/// As compare of texts, from where the readers stand.
template <class Left, class Right>
int compareFrom(Left& left, Right& right, Case mode, int maxCount, bool prefixOnly) {
  for (int count = 0; maxCount < 0 || count < maxCount; ++count) {
    char32_t a;
    char32_t b;
    const bool leftGoesOn = left.read(a);
    if (!leftGoesOn && prefixOnly) return 0;
    const bool rightGoesOn = right.read(b);
    if (!leftGoesOn || !rightGoesOn) return leftGoesOn - rightGoesOn;
    if (a == b) continue;
    a = key(a, mode);
    b = key(b, mode);
    if (a != b) return a < b ? -1 : 1;
  }
  return 0;
}

}  // namespace orlo::text
