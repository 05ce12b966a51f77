#pragma once

#include "foundation/Object.h"
#include "foundation/String.h"

#include <atomic>
#include <cstdint>

namespace orlo {

/// A text in one piece of memory, its own or not. Never changes after construction.
class CString : public CObject, public virtual IComparable, public IString {
public:
  enum class Storage {
    copy = 0,       ///< copies the whole units of the text and terminates the copy
    adopt = 1,      ///< takes over a text made with new unsigned char[]
    reference = 2,  ///< refers to a text that outlives the string
  };

  /// A byteSize of -1 measures a terminated text, a length of -1 counts the characters. terminated says for adopt and
  /// reference whether the terminator stands behind the text.
  CString(const void* text, int byteSize, Storage storage, bool terminated, P<ICharEncoding> encoding, int length = -1);
  ~CString() override;
  CString(const CString&) = delete;
  CString& operator=(const CString&) = delete;

  using IString::compare;
  CTextView view() const override;
  bool isNull() const override { return false; }
  bool isTerminated() const override { return terminated_; }
  P<IString> toTerminated() override;
  /// Computed once.
  std::int32_t getHash() const override;

private:
  static constexpr std::uint32_t kNoHash = 0x80000000;

  const unsigned char* data_;
  std::uint32_t byteSize_;
  bool terminated_;
  bool owned_;
  P<ICharEncoding> encoding_;
  std::int32_t length_;
  mutable std::atomic<std::uint32_t> hash_{kNoHash};
};

/// The text in memory of its own, with the terminator of its encoding.
P<IString> terminatedCopy(const CTextView& text);

/// A CString of one encoding, made from the characters as they come in literals.
template <class Char, P<ICharEncoding>& (*sharedEncoding)()>
class TEncodedString : public CString {
public:
  using Unit = Char;
  static P<ICharEncoding>& getClassEncoding() { return sharedEncoding(); }

  explicit TEncodedString(const Char* text, Storage storage = Storage::reference, int byteSize = -1,
                          bool terminated = true, int length = -1)
      : CString(text, byteSize, storage, terminated, sharedEncoding(), length) {}
};

class CLatin1String : public TEncodedString<char, getLatin1CharEncoding> {
  using TEncodedString::TEncodedString;
};
/// UTF-16 on every platform.
class CWCharString : public TEncodedString<char16_t, getUTF16CharEncoding> {
  using TEncodedString::TEncodedString;
};
class CUTF8String : public TEncodedString<char8_t, getUTF8CharEncoding> {
  using TEncodedString::TEncodedString;
};
class CUTF32String : public TEncodedString<char32_t, getUTF32CharEncoding> {
  using TEncodedString::TEncodedString;
};
class CCPString : public TEncodedString<char, getCPCharEncoding> {
  using TEncodedString::TEncodedString;
};

/// The empty text that stands for "no value".
template <class Char, class Base>
class TNullString : public Base {
public:
  TNullString() : Base(&terminator_, Base::Storage::reference, 0, true, 0) {}
  bool isNull() const override { return true; }

private:
  static constexpr Char terminator_{};
};

}  // namespace orlo
