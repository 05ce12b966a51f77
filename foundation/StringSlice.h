#pragma once

#include "foundation/Object.h"
#include "foundation/String.h"

namespace orlo {

/// A window of another text, which it keeps alive. Nothing is copied.
class CStringSlice : public CObject, public virtual IComparable, public IString {
public:
  /// What stands between two positions of the text; nothing if the first is behind the second. A slice of a slice
  /// refers to the parent of the latter.
  CStringSlice(const IString& text, CStringPos start, CStringPos end);
  /// A window whose characters the caller has counted, of a text that is no slice.
  CStringSlice(const IString& root, const CTextView& window);

  using IString::compare;
  CTextView view() const override;
  bool isNull() const override { return false; }
  /// Only where the window ends with a terminated parent.
  bool isTerminated() const override;
  P<IString> toTerminated() override;
  const IString& getRoot() const override { return *parent_; }

private:
  const unsigned char* data_;
  std::uint32_t byteSize_;
  std::int32_t length_;
  P<ICharEncoding> encoding_;
  PC<IString> parent_;
};

}  // namespace orlo
