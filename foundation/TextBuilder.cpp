#include "foundation/TextBuilder.h"

#include "foundation/CodePointReader.h"
#include "foundation/StringObject.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace orlo {

CTextBuilder::CTextBuilder(ICharEncoding& encoding)
    : encoding_(&encoding),
      maxCharSize_(encoding.getMaxCharSize()),
      asciiSize_(encoding.getId() == kCodePageTag ? 0 : encoding.getEncodedSize(U'A')) {}

void CTextBuilder::appendEncoded(char32_t codePoint) {
  const int behind = encoding_->encode(codePoint, bytes_.data(), static_cast<int>(bytes_.size()), size_);
  if (behind >= 0) size_ = behind;
}

void CTextBuilder::append(const CTextView& text) {
  CCodePointReader reader(text);
  for (char32_t codePoint; reader.read(codePoint);) append(codePoint);
}

String CTextBuilder::build() const {
  return terminatedCopy({bytes_.data(), size_, -1, *encoding_});
}

void CTextBuilder::grow() {
  constexpr std::size_t kMost = std::numeric_limits<int>::max();
  const std::size_t least = static_cast<std::size_t>(size_) + static_cast<std::size_t>(maxCharSize_);
  if (least > kMost) throw std::length_error("text of 2 GiB or more");
  bytes_.resize(std::clamp<std::size_t>(2 * bytes_.size(), std::max<std::size_t>(least, 64), kMost));
}

}  // namespace orlo
