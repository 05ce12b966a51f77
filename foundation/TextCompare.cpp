#include "foundation/TextReaders.h"

#include <cstring>

namespace orlo::text {

namespace {

bool sameBytes(const CTextView& left, const CTextView& right) {
  return left.encoding == right.encoding && left.byteSize == right.byteSize &&
         (left.byteSize == 0 || std::memcmp(left.data, right.data, static_cast<std::size_t>(left.byteSize)) == 0);
}

int compareBytes(std::string_view left, std::string_view right, int maxCount, bool prefixOnly) {
  const std::size_t most = maxCount < 0 ? std::string_view::npos : static_cast<std::size_t>(maxCount);
  left = left.substr(0, most);
  const int order = left.compare(right.substr(0, prefixOnly ? left.size() : most));
  return (order > 0) - (order < 0);
}

}  // namespace

int compare(const CTextView& left, const CTextView& right, Case mode, int maxCount, bool prefixOnly) {
  if (mode == Case::sensitive) {
    const auto leftBytes = asBytes(left);
    const auto rightBytes = leftBytes ? asBytes(right) : std::nullopt;
    if (rightBytes) return compareBytes(*leftBytes, *rightBytes, maxCount, prefixOnly);
  }
  if (sameBytes(left, right)) return 0;
  return withReaderOf(left, [&](auto leftReader) {
    return withReaderOf(right, [&](auto rightReader) {
      auto from = leftReader();
      auto with = rightReader();
      return compareFrom(from, with, mode, maxCount, prefixOnly);
    });
  });
}

bool equals(const CTextView& left, const CTextView& right, Case mode) {
  // Case mappings are one to one, so the lengths tell in both modes.
  if (left.length >= 0 && right.length >= 0 && left.length != right.length) return false;
  return sameBytes(left, right) || compare(left, right, mode) == 0;
}

bool startsWith(const CTextView& text, const CTextView& start, Case mode) {
  return compare(start, text, mode, -1, true) == 0;
}

bool endsWith(const CTextView& text, const CTextView& end, Case mode) {
  // Forwards, since not every encoding can be walked backwards.
  const int skipped = length(text) - length(end);
  return skipped >= 0 && compare(part(text, positionAt(text, skipped), CStringPos::end()), end, mode) == 0;
}

}  // namespace orlo::text
