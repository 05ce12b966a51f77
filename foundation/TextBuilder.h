#pragma once

#include "foundation/TextView.h"

#include <vector>

namespace orlo {

/// Collects a text in one encoding. What the encoding cannot hold is left out.
class CTextBuilder {
public:
  explicit CTextBuilder(ICharEncoding& encoding);

  /// A text that would reach 2 GiB throws std::length_error.
  void append(char32_t codePoint);
  void append(const CTextView& text);

  const unsigned char* data() const { return bytes_.data(); }
  int size() const { return size_; }
  /// A new string, which is never null.
  String build() const;

private:
  void grow();

  P<ICharEncoding> encoding_;
  int maxCharSize_;
  int size_ = 0;
  std::vector<unsigned char> bytes_;
};

}  // namespace orlo
