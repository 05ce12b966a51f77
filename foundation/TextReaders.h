#pragma once

#include "foundation/CodePointReader.h"
#include "foundation/TextAlgorithms.h"
#include "foundation/Unicode.h"

#include <cstring>
#include <string_view>
#include <type_traits>

/// What the algorithms on texts share: they are written once, for readers. Texts whose characters are their units,
/// which are most texts, have a reader that gives the same characters and positions without decoding.
namespace orlo::text {

/// The bytes of a text in which every byte is a character with the byte's value as its code point; nothing for other
/// texts. Latin-1 is such a text, and UTF-8 that is ASCII alone.
inline std::optional<std::string_view> asBytes(const CTextView& text) {
  const std::uint32_t id = text.encoding->getId();
  if (id != kLatin1Tag && (id != kUTF8Tag || length(text) != text.byteSize)) return std::nullopt;
  return std::string_view(reinterpret_cast<const char*>(text.data), static_cast<std::size_t>(text.byteSize));
}

/// CCodePointReader for a text whose characters are units with the value of their code points.
template <class Unit>
class TUnitReader {
public:
  using Direction = CCodePointReader::Direction;

  explicit TUnitReader(const CTextView& text, CStringPos start = {}, Direction direction = Direction::forwards)
      : data_(text.data), size_(text.byteSize), direction_(direction) {
    seek(start);
  }

  bool read(char32_t& codePoint) {
    Unit unit;
    if (direction_ == Direction::forwards) {
      if (next_ == size_) return false;
      std::memcpy(&unit, data_ + next_, kSize);
      next_ += kSize;
    } else {
      if (next_ == 0) return false;
      next_ -= kSize;
      std::memcpy(&unit, data_ + next_, kSize);
    }
    codePoint = unit;
    return true;
  }

  /// Where the character that was read last begins.
  CStringPos lastPosition() const {
    const int offset = direction_ == Direction::forwards ? next_ - kSize : next_;
    return {offset / kSize, offset};
  }
  void seek(CStringPos pos) { next_ = pos.isEnd() ? size_ : pos.byteOffset; }

private:
  static constexpr int kSize = sizeof(Unit);

  const unsigned char* data_;
  int size_;
  Direction direction_;
  int next_ = 0;
};

/// Calls the action with a function that makes readers of the text from a start and a direction.
template <class Action>
auto withReaderOf(const CTextView& text, Action action) {
  const auto make = [&text]<class Reader>(std::type_identity<Reader>) {
    return [&text](auto... where) { return Reader(text, where...); };
  };
  const std::uint32_t id = text.encoding->getId();
  if (id != kCodePageTag) {
    const int unit = characterSize({text.data, text.byteSize, length(text), *text.encoding});
    if (unit == 1) return action(make(std::type_identity<TUnitReader<std::uint8_t>>()));
    if (unit == 2) return action(make(std::type_identity<TUnitReader<char16_t>>()));
    if (unit == 4) return action(make(std::type_identity<TUnitReader<char32_t>>()));
  }
  return action(make(std::type_identity<CCodePointReader>()));
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
