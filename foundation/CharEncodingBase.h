#pragma once

#include "foundation/CharEncoding.h"
#include "foundation/Object.h"
#include "foundation/String.h"

#include <cstring>
#include <limits>
#include <stdexcept>

namespace orlo {

/// Everything that follows from how one character is read and written. Derived has
///   kId, kName, kMaxCharSize and Unit, the integer type of its code units;
///   read(codePoint, buffer, size, pos): the position behind the character at pos or -1, for 0 <= pos < size;
///   sizeOf(codePoint): the bytes it takes, 0 if it is outside the encoding;
///   write(codePoint, place): writes that many bytes.
template <class Derived>
class TCharEncoding : public CObject, public ICharEncoding {
public:
  std::uint32_t getId() const override { return Derived::kId; }
  String getName() const override { return Derived::kName; }
  int getMaxCharSize() const override { return Derived::kMaxCharSize; }

  int encode(char32_t codePoint, unsigned char* buffer, int size, int pos) const override {
    const int charSize = Derived::sizeOf(codePoint);
    if (charSize == 0 || pos < 0 || pos > size || size - pos < charSize) return -1;
    Derived::write(codePoint, buffer + pos);
    return pos + charSize;
  }

  int getEncodedSize(char32_t codePoint) const override { return Derived::sizeOf(codePoint); }

  int getCharSizeAt(const unsigned char* buffer, int size, int pos) const override {
    char32_t codePoint;
    const int behind = decodeStrict(codePoint, buffer, size, pos);
    return behind < 0 ? -1 : behind - pos;
  }

  int countChars(const unsigned char* buffer, int size, int pos) const override {
    if (pos < 0 || pos > size) return -1;
    int count = 0;
    char32_t codePoint;
    while ((pos = readNext(codePoint, buffer, size, pos)) >= 0) ++count;
    return count;
  }

  int measureTerminated(const void* buffer) const override {
    using Unit = typename Derived::Unit;
    const unsigned char* end = static_cast<const unsigned char*>(buffer);
    std::size_t size = 0;
    for (Unit unit;; size += sizeof unit) {
      std::memcpy(&unit, end + size, sizeof unit);
      if (unit == 0) break;
    }
    if (size > std::numeric_limits<int>::max()) throw std::length_error("text of 2 GiB or more");
    return static_cast<int>(size);
  }

  int skipChars(const unsigned char* buffer, int size, int count) const override {
    if (count < 0) return -1;
    int pos = 0;
    char32_t codePoint;
    for (; count > 0 && pos >= 0; --count) pos = readNext(codePoint, buffer, size, pos);
    return pos;
  }

  int findValid(const unsigned char* buffer, int size, int pos) const override {
    if (pos < 0) return -1;
    char32_t codePoint;
    for (; pos < size; ++pos)
      if (Derived::read(codePoint, buffer, size, pos) >= 0) return pos;
    return -1;
  }

  int decodeStrict(char32_t& codePoint, const unsigned char* buffer, int size, int pos) const override {
    if (pos < 0 || pos >= size) return -1;
    return Derived::read(codePoint, buffer, size, pos);
  }

  int decode(char32_t& codePoint, const unsigned char* buffer, int size, int pos) const override {
    if (pos < 0) return -1;
    return readNext(codePoint, buffer, size, pos);
  }

  int decodeRun(char32_t* codePoints, int* positions, int maxCount, int& count, const unsigned char* buffer, int size,
                int pos) const override {
    int read = 0;
    while (pos >= 0 && read < maxCount && (pos = readNext(codePoints[read], buffer, size, pos)) >= 0)
      positions[read++] = pos;
    count = read;
    return read > 0 ? positions[read - 1] : -1;
  }

private:
  static int readNext(char32_t& codePoint, const unsigned char* buffer, int size, int pos) {
    for (; pos < size; ++pos) {
      const int behind = Derived::read(codePoint, buffer, size, pos);
      if (behind >= 0) return behind;
    }
    return -1;
  }
};

/// An encoding that can be read from the end too. Derived also has
///   readBackwards(codePoint, buffer, pos): the start of the character that ends at pos or -1, for pos > 0.
template <class Derived>
class TTwoWayCharEncoding : public TCharEncoding<Derived> {
public:
  bool canWalkBackwards() const override { return true; }

  int findValidBackwards(const unsigned char* buffer, int size, int pos) const override {
    if (pos > size) return -1;
    char32_t codePoint;
    for (; pos > 0; --pos)
      if (Derived::readBackwards(codePoint, buffer, pos) >= 0) return pos;
    return -1;
  }

  int decodeStrictBackwards(char32_t& codePoint, const unsigned char* buffer, int size, int pos) const override {
    if (pos <= 0 || pos > size) return -1;
    return Derived::readBackwards(codePoint, buffer, pos);
  }

  int decodeBackwards(char32_t& codePoint, const unsigned char* buffer, int size, int pos) const override {
    if (pos > size) return -1;
    return readPrevious(codePoint, buffer, pos);
  }

  int decodeRunBackwards(char32_t* codePoints, int* positions, int maxCount, int& count, const unsigned char* buffer,
                         int size, int pos) const override {
    int read = 0;
    while (pos <= size && read < maxCount && (pos = readPrevious(codePoints[read], buffer, pos)) >= 0)
      positions[read++] = pos;
    count = read;
    return read > 0 ? positions[read - 1] : -1;
  }

private:
  static int readPrevious(char32_t& codePoint, const unsigned char* buffer, int pos) {
    for (; pos > 0; --pos) {
      const int start = Derived::readBackwards(codePoint, buffer, pos);
      if (start >= 0) return start;
    }
    return -1;
  }
};

}  // namespace orlo
