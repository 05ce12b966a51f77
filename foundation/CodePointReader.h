#pragma once

#include "foundation/StringPos.h"
#include "foundation/TextView.h"

namespace orlo {

/// Walks a text in one direction, decoding a block of code points at a time. Allocates nothing; the text must outlive
/// the reader.
class CCodePointReader {
public:
  enum class Direction { forwards, backwards };

  /// Starts at the end if start is the end position; that counts the characters unless the text's length is known.
  explicit CCodePointReader(const CTextView& text, CStringPos start = {}, Direction direction = Direction::forwards);

  /// The next code point in the direction of the walk; false when there is none left.
  bool read(char32_t& codePoint) {
    if (blockIndex_ == blockCount_ && !refill()) return false;
    codePoint = codePoints_[blockIndex_++];
    return true;
  }

  /// Where the next read begins: behind, or walking backwards before, the character that was read last.
  CStringPos position() const { return positionAfter(blockIndex_); }
  /// Where the character that was read last begins, or the invalid bytes before it.
  CStringPos lastPosition() const;
  /// Costs nothing within the present block.
  void seek(CStringPos pos);

private:
  static constexpr int kBlockSize = 16;

  bool refill();
  CStringPos positionAfter(int readOfBlock) const;
  void restart(CStringPos pos);

  CTextView text_;
  Direction direction_;
  CStringPos blockStart_;
  int blockCount_ = 0;
  int blockIndex_ = 0;
  char32_t codePoints_[kBlockSize];
  int positions_[kBlockSize];
};

}  // namespace orlo
