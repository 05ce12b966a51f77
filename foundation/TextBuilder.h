#pragma once

#include "foundation/TextView.h"

#include <cstring>
#include <vector>

namespace orlo {

/// Collects a text in one encoding. What the encoding cannot hold is left out.
class CTextBuilder {
public:
  explicit CTextBuilder(ICharEncoding& encoding);

  /// A text that would reach 2 GiB throws std::length_error.
  void append(char32_t codePoint) {
    if (static_cast<int>(bytes_.size()) - size_ < maxCharSize_) grow();
    if (codePoint < 0x80 && asciiSize_ > 0)
      appendASCII(codePoint);
    else
      appendEncoded(codePoint);
  }
  void append(const CTextView& text);

  const unsigned char* data() const { return bytes_.data(); }
  int size() const { return size_; }
  /// A new string, which is never null.
  String build() const;

private:
  void grow();
  void appendEncoded(char32_t codePoint);
  template <class Unit>
  void appendUnit(Unit unit) {
    std::memcpy(bytes_.data() + size_, &unit, sizeof unit);
    size_ += static_cast<int>(sizeof unit);
  }
  void appendASCII(char32_t codePoint) {
    if (asciiSize_ == 1)
      appendUnit(static_cast<unsigned char>(codePoint));
    else if (asciiSize_ == 2)
      appendUnit(static_cast<char16_t>(codePoint));
    else
      appendUnit(codePoint);
  }

  P<ICharEncoding> encoding_;
  int maxCharSize_;
  /// Of a character that stands as its code point in one unit; 0 in a code page, which may be any.
  int asciiSize_;
  int size_ = 0;
  std::vector<unsigned char> bytes_;
};

}  // namespace orlo
