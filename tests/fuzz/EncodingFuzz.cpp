// Reads any bytes as text of one encoding, FUZZED_ENCODING, and checks that all of its operations tell the same story.

#include "foundation/StringObject.h"

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <vector>

using namespace orlo;

namespace {

#define CHECK(condition)                                                   \
  do {                                                                     \
    if (!(condition)) {                                                    \
      std::fprintf(stderr, "%s:%d: %s\n", __FILE__, __LINE__, #condition); \
      std::abort();                                                        \
    }                                                                      \
  } while (false)

struct CCharacter {
  char32_t codePoint;
  int start;
  int end;
  bool operator==(const CCharacter&) const = default;
};

const ICharEncoding& encoding() {
  return *FUZZED_ENCODING();
}

void checkRoundTrip(char32_t codePoint) {
  unsigned char bytes[16];
  const int size = encoding().getEncodedSize(codePoint);
  CHECK(size > 0 && size <= encoding().getMaxCharSize());
  CHECK(encoding().encode(codePoint, bytes, size - 1, 0) == -1);
  CHECK(encoding().encode(codePoint, bytes, size, 0) == size);
  char32_t again = 0;
  CHECK(encoding().decodeStrict(again, bytes, size, 0) == size);
  CHECK(again == codePoint);
}

/// Any 32 bits are written completely or not at all.
void checkEncode(char32_t codePoint) {
  unsigned char bytes[16];
  const int size = encoding().getEncodedSize(codePoint);
  CHECK(encoding().encode(codePoint, bytes, 16, 0) == (size > 0 ? size : -1));
}

/// The text character by character.
std::vector<CCharacter> readForwards(const unsigned char* buffer, int size) {
  std::vector<CCharacter> result;
  for (int pos = 0;;) {
    CCharacter character;
    const int behind = encoding().decode(character.codePoint, buffer, size, pos);
    character.start = encoding().findValid(buffer, size, pos);
    if (behind < 0) {
      CHECK(behind == -1 && character.start == -1);
      return result;
    }
    CHECK(character.start >= pos && behind > character.start && behind <= size);
    for (int skipped = pos; skipped < character.start; ++skipped) {
      char32_t none;
      CHECK(encoding().decodeStrict(none, buffer, size, skipped) == -1);
    }
    char32_t strict = 0;
    CHECK(encoding().decodeStrict(strict, buffer, size, character.start) == behind);
    CHECK(strict == character.codePoint);
    CHECK(encoding().getCharSizeAt(buffer, size, character.start) == behind - character.start);
    CHECK(behind - character.start <= encoding().getMaxCharSize());
    character.end = pos = behind;
    checkRoundTrip(character.codePoint);
    result.push_back(character);
  }
}

std::vector<CCharacter> readBackwards(const unsigned char* buffer, int size) {
  std::vector<CCharacter> result;
  for (int pos = size;;) {
    CCharacter character;
    const int start = encoding().decodeBackwards(character.codePoint, buffer, size, pos);
    character.end = encoding().findValidBackwards(buffer, size, pos);
    if (start < 0) {
      CHECK(start == -1 && character.end == -1);
      std::reverse(result.begin(), result.end());
      return result;
    }
    CHECK(character.end <= pos && start < character.end && start >= 0);
    char32_t strict = 0;
    CHECK(encoding().decodeStrictBackwards(strict, buffer, size, character.end) == start);
    CHECK(strict == character.codePoint);
    character.start = pos = start;
    result.push_back(character);
  }
}

void checkRuns(const std::vector<CCharacter>& text, const unsigned char* buffer, int size, int maxCount) {
  std::vector<char32_t> codePoints(static_cast<std::size_t>(maxCount));
  std::vector<int> positions(static_cast<std::size_t>(maxCount));
  std::size_t read = 0;
  for (int pos = 0;;) {
    int count = -1;
    pos = encoding().decodeRun(codePoints.data(), positions.data(), maxCount, count, buffer, size, pos);
    if (pos < 0) {
      CHECK(count == 0 && read == text.size());
      break;
    }
    CHECK(count > 0 && count <= maxCount && read + static_cast<std::size_t>(count) <= text.size());
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i, ++read)
      CHECK(codePoints[i] == text[read].codePoint && positions[i] == text[read].end);
  }
  if (!encoding().canWalkBackwards()) return;
  for (int pos = size;;) {
    int count = -1;
    pos = encoding().decodeRunBackwards(codePoints.data(), positions.data(), maxCount, count, buffer, size, pos);
    if (pos < 0) {
      CHECK(count == 0 && read == 0);
      break;
    }
    CHECK(count > 0 && count <= maxCount && read >= static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
      --read;
      CHECK(codePoints[i] == text[read].codePoint && positions[i] == text[read].start);
    }
  }
}

void checkCounts(const std::vector<CCharacter>& text, const unsigned char* buffer, int size) {
  const int count = static_cast<int>(text.size());
  CHECK(encoding().countChars(buffer, size, 0) == count);
  CHECK(encoding().skipChars(buffer, size, 0) == 0);
  CHECK(encoding().skipChars(buffer, size, count + 1) == -1);
  for (int i = 0; i < count; ++i) {
    if (i > 8 && i + 1 < count) continue;  // each call walks from the start
    CHECK(encoding().skipChars(buffer, size, i + 1) == text[static_cast<std::size_t>(i)].end);
    CHECK(encoding().countChars(buffer, size, text[static_cast<std::size_t>(i)].end) == count - i - 1);
  }
}

void checkTerminated(const unsigned char* buffer, int size) {
  std::vector<unsigned char> terminated(buffer, buffer + size);
  // An incomplete unit at the end takes up a part of the first zeros.
  terminated.insert(terminated.end(), 8, 0);
  const int measured = encoding().measureTerminated(terminated.data());
  CHECK(measured >= 0 && measured < size + 4 && measured % encoding().getEncodedSize(0) == 0);
  char32_t terminator = 1;
  CHECK(encoding().decodeStrict(terminator, terminated.data(), static_cast<int>(terminated.size()), measured) > 0);
  CHECK(terminator == 0);
}

void checkStrings(const std::vector<CCharacter>& characters, const unsigned char* buffer, int size) {
  const int count = static_cast<int>(characters.size());
  const String text =
      P<IString>(makeObject<CString>(buffer, size, CString::Storage::reference, false, FUZZED_ENCODING()));
  const String copy = text.toTerminated();
  CHECK(text.length() == count && copy.length() == count && copy.isTerminated());
  CHECK(copy.getByteSize() == size - size % encoding().getEncodedSize(0) && text == copy);
  CHECK(encoding().measureTerminated(copy.getData()) <= copy.getByteSize());

  const String other = toUTF32(text);
  CHECK(other.length() == count && other == text && text.compare(other) == 0);
  CHECK(text.compareIgnoreCase(other.toUpper().toLower()) == -other.toUpper().toLower().compareIgnoreCase(text));
  CHECK(text.startsWith(other) && text.endsWith(other));
  CHECK(text.toLower().length() == count && text.toUpper().length() == count);
  CHECK(text.equalsIgnoreCase(text.toLower()));
  CHECK(text.replace(other, "") == "" && text.replace("", "x") == text);

  CStringPos pos;
  for (const CCharacter& character : characters) CHECK(text.next(pos) == character.codePoint);
  CHECK(!text.next(pos) && pos == CStringPos::end());
  if (!encoding().canWalkBackwards()) return;
  for (int i = count - 1; i >= 0; --i) {
    CHECK(text.previous(pos) == characters[static_cast<std::size_t>(i)].codePoint);
    CHECK(pos.index == i && pos.byteOffset == characters[static_cast<std::size_t>(i)].start);
  }
  CHECK(!text.previous(pos));
  if (count == 0) return;

  const CCharacter& chosen = characters[characters.size() / 2];
  const char32_t needle[] = {chosen.codePoint, 0};
  if (chosen.codePoint == 0) return;
  const CStringPos first = text.find(needle);
  const CStringPos last = text.findLast(needle);
  CHECK(first == text.findAnyOf(needle) && last == text.findLastAnyOf(needle));
  CHECK(characters[static_cast<std::size_t>(first.index)].codePoint == chosen.codePoint);
  CHECK(first.index <= count / 2 && last.index >= count / 2);
  CHECK(text.charAt(last) == chosen.codePoint && text.charAt(first.index) == chosen.codePoint);
  CHECK(text.positionAt(last.index) == last && text.advance(first, last.index - first.index) == last);
  CHECK(text.advance(last, first.index - last.index) == first);
}

/// A window of the text against the same window of its characters, in the encoding and as code points, which are read
/// in other ways. The text's first characters say what is cut and searched.
void checkSlices(const std::vector<CCharacter>& characters, const unsigned char* buffer, int size) {
  const int count = static_cast<int>(characters.size());
  if (count == 0) return;
  const auto number = [&](int index) {
    return static_cast<int>(characters[static_cast<std::size_t>(index % count)].codePoint % 64);
  };
  const String text =
      P<IString>(makeObject<CString>(buffer, size, CString::Storage::reference, false, FUZZED_ENCODING()));
  const int from = number(0) % count;
  const int length = std::min(number(1), count - from);
  const String slice = text.substring(from, length);
  const String other = toUTF32(text).substring(from, length);
  CHECK(slice.length() == length && slice.toTerminated() == slice && toUTF32(slice) == other);
  CHECK(slice == other && slice.compareIgnoreCase(other) == 0 && slice.getHash() == other.getHash());
  CHECK(text.substring(text.positionAt(from), text.positionAt(from + length)) == other);
  const String inner = slice.substring(number(2), number(3));
  CHECK(inner == other.substring(number(2), number(3)) && &inner.getText().getRoot() == &text.getText());

  for (const String& what : {toUTF8(inner), toWide(inner), other.substring(number(4), 2)}) {
    CHECK(slice.find(what).index == other.find(what).index);
    CHECK(slice.findIgnoreCase(what).index == other.findIgnoreCase(what).index);
    CHECK(slice.findAnyOf(what).index == other.findAnyOf(what).index);
    CHECK(slice.findNoneOfIgnoreCase(what).index == other.findNoneOfIgnoreCase(what).index);
    CHECK(slice.endsWith(what) == other.endsWith(what));
    for (const bool ignoreCase : {false, true})
      CHECK(slice.strip(what, number(5) % 2, number(6) % 2, ignoreCase) ==
            other.strip(what, number(5) % 2, number(6) % 2, ignoreCase));
    if (!encoding().canWalkBackwards()) continue;
    CHECK(slice.findLast(what).index == other.findLast(what).index);
    CHECK(slice.findLastNoneOf(what).index == other.findLastNoneOf(what).index);
  }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  if (!std::setlocale(LC_CTYPE, "C.UTF-8")) std::abort();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t dataSize) {
  const int size = static_cast<int>(dataSize);
  const std::vector<CCharacter> text = readForwards(data, size);
  if (encoding().canWalkBackwards()) CHECK(readBackwards(data, size) == text);
  checkCounts(text, data, size);
  checkRuns(text, data, size, 1 + size % 20);
  checkTerminated(data, size);
  checkStrings(text, data, size);
  checkSlices(text, data, size);
  for (int pos = 0; pos + 4 <= size && pos < 64; pos += 4) {
    char32_t any;
    std::copy_n(data + pos, 4, reinterpret_cast<unsigned char*>(&any));
    checkEncode(any);
  }
  return 0;
}
