#pragma once

#include "foundation/Comparable.h"
#include "foundation/TextOperations.h"

#include <compare>
#include <cstddef>
#include <string>
#include <string_view>

namespace orlo {

/// An immutable text in an encoding of its own. Implementations say where the text is, everything else follows from
/// that.
class IString : public virtual IComparable, public TTextOperations<IString> {
public:
  using IComparable::compare;
  using TTextOperations<IString>::compare;
  int compare(PC<IBase> other) const override;

  /// The view lives as long as this object.
  virtual CTextView view() const = 0;
  /// True for the null strings only, which are empty texts that stand for "no value".
  virtual bool isNull() const = 0;
  /// True if the encoding's terminator stands behind the text.
  virtual bool isTerminated() const = 0;
  /// This object if it is terminated, else a terminated copy.
  virtual P<IString> toTerminated() = 0;
  /// Equal texts have equal hashes, whatever their encodings are.
  virtual std::int32_t getHash() const { return text::hash(view()); }
  /// Whose bytes these are: this text's own, or those of the parent of a slice.
  virtual const IString& getRoot() const { return *this; }

  const IString& getText() const { return *this; }
};

/// The handle that all code passes around. One pointer wide; a copy is a reference. Never refers to nothing.
class String : public TTextOperations<String> {
public:
  /// The shared empty string, in UTF-16, which loses nothing that is appended. It is not null.
  String();
  /// The null string, in UTF-16: "no value".
  String(std::nullptr_t);
  /// Literals and other texts that outlive the string: they are referred to, not copied. Null gives a null string.
  String(const char* latin1);
  String(const wchar_t* wide);
  String(const char16_t* utf16);
  String(const char8_t* utf8);
  String(const char32_t* utf32);
  /// Null gives the null string.
  String(P<IString> text);

  String(const String&) = default;
  String& operator=(const String&) = default;
  String& operator=(String&& other) noexcept {
    text_.swap(other.text_);
    return *this;
  }
  ~String() = default;

  const P<IString>& getObject() const { return text_; }
  const IString& getText() const { return *text_; }
  CTextView view() const { return text_->view(); }
  bool isNull() const { return text_->isNull(); }
  bool isTerminated() const { return text_->isTerminated(); }
  String toTerminated() const { return text_->toTerminated(); }
  std::int32_t getHash() const { return text_->getHash(); }

  /// Makes a new text in the encoding of the left side; what that encoding cannot hold is left out.
  String& operator+=(const CTextView& other);
  friend String operator+(const String& left, const CTextView& right);

  // Of views, so that a string can be compared with everything that has a view.
  friend bool operator==(const CTextView& left, const CTextView& right) {
    return text::equals(left, right, text::Case::sensitive);
  }
  friend std::weak_ordering operator<=>(const CTextView& left, const CTextView& right) {
    return text::compare(left, right, text::Case::sensitive) <=> 0;
  }

private:
  P<IString> text_;
};

/// The text that the object is, as enumerators of names hand it out. Null gives the null string, an object that is no
/// text throws CCastError.
String asString(const PC<IBase>& object);
/// A copy of bytes in UTF-8.
String fromUTF8(std::string_view utf8);
/// The bytes of toUTF8.
std::string toStdString(const String& text);

/// The text in the encoding named, terminated. A text that is so already is returned itself, a null string gives a null
/// string, and what the encoding cannot hold is left out. toWide is UTF-16 everywhere; toWChar has the width of
/// wchar_t.
String toWide(const String& text);
String toCodePage(const String& text);
String toUTF8(const String& text);
String toLatin1(const String& text);
String toUTF32(const String& text);
String toWChar(const String& text);

template <class Self>
String TTextOperations<Self>::substring(CStringPos start, CStringPos end) const {
  return text::substring(static_cast<const Self*>(this)->getText(), start, end);
}
template <class Self>
String TTextOperations<Self>::substring(int index, int count) const {
  return text::substring(static_cast<const Self*>(this)->getText(), index, count);
}
template <class Self>
String TTextOperations<Self>::strip(const CTextView& set, bool left, bool right, bool ignoreCase) const {
  return text::strip(static_cast<const Self*>(this)->getText(), set, left, right,
                     ignoreCase ? text::Case::ignored : text::Case::sensitive);
}
template <class Self>
String TTextOperations<Self>::strip(char32_t codePoint, bool left, bool right, bool ignoreCase) const {
  return strip(CTextView(&codePoint, sizeof codePoint, 1, *getUTF32CharEncoding()), left, right, ignoreCase);
}
template <class Self>
String TTextOperations<Self>::replace(const CTextView& from, const CTextView& to, CStringPos start,
                                      CStringPos end) const {
  return text::replace(view(), from, to, text::Case::sensitive, start, end);
}
template <class Self>
String TTextOperations<Self>::replaceIgnoreCase(const CTextView& from, const CTextView& to, CStringPos start,
                                                CStringPos end) const {
  return text::replace(view(), from, to, text::Case::ignored, start, end);
}
template <class Self>
String TTextOperations<Self>::toLower() const {
  return text::toLower(view());
}
template <class Self>
String TTextOperations<Self>::toUpper() const {
  return text::toUpper(view());
}

}  // namespace orlo
