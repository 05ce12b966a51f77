#include "foundation/StringSlice.h"

#include "foundation/StringObject.h"

namespace orlo {

CStringSlice::CStringSlice(const IString& text, CStringPos start, CStringPos end) : parent_(&text.getRoot()) {
  const CTextView window = text::part(text.view(), start, end);
  data_ = window.data;
  byteSize_ = static_cast<std::uint32_t>(window.byteSize);
  length_ = text::length(window);
  encoding_ = window.encoding;
}

CStringSlice::CStringSlice(const IString& root, const CTextView& window)
    : data_(window.data),
      byteSize_(static_cast<std::uint32_t>(window.byteSize)),
      length_(window.length),
      encoding_(window.encoding),
      parent_(&root) {}

CTextView CStringSlice::view() const {
  return {data_, static_cast<int>(byteSize_), length_, *encoding_};
}

bool CStringSlice::isTerminated() const {
  const CTextView whole = parent_->view();
  return parent_->isTerminated() && data_ + byteSize_ == whole.data + whole.byteSize;
}

P<IString> CStringSlice::toTerminated() {
  return isTerminated() ? P<IString>(this) : terminatedCopy(view());
}

namespace text {

String substring(const IString& text, CStringPos start, CStringPos end) {
  P<IString> result;
  result.attach(new CStringSlice(text, start, end));
  return result;
}

String substring(const IString& text, int index, int count) {
  const CTextView view = text.view();
  const CStringPos start = count > 0 ? positionAt(view, index) : CStringPos::end();
  return substring(text, start, start.isEnd() ? start : advance(view, start, count));
}

String strip(const IString& text, const CTextView& set, bool left, bool right, Case mode) {
  const CTextView view = text.view();
  const CStringPos first = findOf(view, set, Member::notIn, mode, {}, CStringPos::end());
  if (length(view) == 0 || (first.isEnd() && (left || right))) return {};
  CStringPos end = CStringPos::end();
  // From run to run and forwards, since not every encoding can be walked backwards.
  for (CStringPos kept = first; right && !kept.isEnd();) {
    end = findOf(view, set, Member::in, mode, kept, CStringPos::end());
    if (end.isEnd()) break;
    kept = findOf(view, set, Member::notIn, mode, end, CStringPos::end());
  }
  return substring(text, left ? first : CStringPos{}, end);
}

}  // namespace text

}  // namespace orlo
