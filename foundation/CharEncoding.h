#pragma once

#include "foundation/Base.h"
#include "foundation/Pointer.h"

#include <cstdint>

namespace orlo {

/// Four characters, the first in the lowest byte.
constexpr std::uint32_t encodingTag(const char (&name)[5]) {
  std::uint32_t tag = 0;
  for (int i = 3; i >= 0; --i) tag = tag << 8 | static_cast<unsigned char>(name[i]);
  return tag;
}

inline constexpr std::uint32_t kUTF8Tag = encodingTag("UTF8");
inline constexpr std::uint32_t kUTF16Tag = encodingTag("UF16");
inline constexpr std::uint32_t kUTF32Tag = encodingTag("UF32");
inline constexpr std::uint32_t kLatin1Tag = encodingTag("LAT1");
inline constexpr std::uint32_t kCodePageTag = encodingTag("CDPG");

/// How the bytes of a text are read as code points. Sizes and positions count bytes, -1 means failure, and a position
/// outside the buffer is a failure like any other. Encodings have no state and may be used from any thread.
class ICharEncoding : public virtual IBase {
public:
  virtual std::uint32_t getId() const = 0;
  virtual String getName() const = 0;
  /// The most bytes that one character takes.
  virtual int getMaxCharSize() const = 0;

  /// Writes one character and answers the position behind it; -1 if it has no place in the buffer or in the encoding.
  virtual int encode(char32_t codePoint, unsigned char* buffer, int size, int pos) const = 0;
  /// 0 for a code point outside the encoding.
  virtual int getEncodedSize(char32_t codePoint) const = 0;

  virtual int getCharSizeAt(const unsigned char* buffer, int size, int pos) const = 0;
  /// The characters from pos to the end. Invalid bytes do not count.
  virtual int countChars(const unsigned char* buffer, int size, int pos) const = 0;
  /// The size of a terminated text without its terminator. A text of 2 GiB or more throws std::length_error.
  virtual int measureTerminated(const void* buffer) const = 0;
  /// The position behind the first count characters, -1 if there are fewer.
  virtual int skipChars(const unsigned char* buffer, int size, int count) const = 0;
  /// The first position at or behind pos where a valid character starts.
  virtual int findValid(const unsigned char* buffer, int size, int pos) const = 0;

  /// Reads the character at pos and answers the position behind it.
  virtual int decodeStrict(char32_t& codePoint, const unsigned char* buffer, int size, int pos) const = 0;
  /// The same, skipping invalid bytes first.
  virtual int decode(char32_t& codePoint, const unsigned char* buffer, int size, int pos) const = 0;

  /// If false, the following three and decodeRunBackwards throw CMethodNotImplementedError.
  virtual bool canWalkBackwards() const = 0;
  /// The last position at or before pos where a valid character ends.
  virtual int findValidBackwards(const unsigned char* buffer, int size, int pos) const = 0;
  /// Reads the character that ends at pos and answers its start.
  virtual int decodeStrictBackwards(char32_t& codePoint, const unsigned char* buffer, int size, int pos) const = 0;
  /// The same, skipping invalid bytes first.
  virtual int decodeBackwards(char32_t& codePoint, const unsigned char* buffer, int size, int pos) const = 0;

  /// Reads up to maxCount characters as decode does, with the position behind each; count is the number read. Answers
  /// the position behind the last one, -1 if there is none.
  virtual int decodeRun(char32_t* codePoints, int* positions, int maxCount, int& count, const unsigned char* buffer,
                        int size, int pos) const = 0;
  /// The same towards the start, with the position before each.
  virtual int decodeRunBackwards(char32_t* codePoints, int* positions, int maxCount, int& count,
                                 const unsigned char* buffer, int size, int pos) const = 0;
};

P<ICharEncoding>& getLatin1CharEncoding();
P<ICharEncoding>& getUTF8CharEncoding();
P<ICharEncoding>& getUTF16CharEncoding();
P<ICharEncoding>& getUTF32CharEncoding();
/// The code page of the C runtime's current locale.
P<ICharEncoding>& getCPCharEncoding();

/// wchar_t text: UTF-16 or UTF-32, as wide as wchar_t is here.
P<ICharEncoding>& getWCharEncoding();

}  // namespace orlo
