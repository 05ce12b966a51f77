#include "foundation/CodePointReader.h"

#include "foundation/TextAlgorithms.h"

namespace orlo {

CCodePointReader::CCodePointReader(const CTextView& text, CStringPos start, Direction direction)
    : text_(text), direction_(direction) {
  restart(start);
}

CStringPos CCodePointReader::lastPosition() const {
  return positionAfter(direction_ == Direction::forwards ? blockIndex_ - 1 : blockIndex_);
}

CStringPos CCodePointReader::positionAfter(int readOfBlock) const {
  if (readOfBlock <= 0) return blockStart_;
  const int walked = direction_ == Direction::forwards ? readOfBlock : -readOfBlock;
  return {blockStart_.index + walked, positions_[readOfBlock - 1]};
}

void CCodePointReader::seek(CStringPos pos) {
  const int walked = direction_ == Direction::forwards ? pos.index - blockStart_.index : blockStart_.index - pos.index;
  if (!pos.isEnd() && walked >= 0 && walked <= blockCount_)
    blockIndex_ = walked;
  else
    restart(pos);
}

bool CCodePointReader::refill() {
  blockStart_ = position();
  blockIndex_ = 0;
  const ICharEncoding& encoding = *text_.encoding;
  if (direction_ == Direction::forwards)
    encoding.decodeRun(codePoints_, positions_, kBlockSize, blockCount_, text_.data, text_.byteSize,
                       blockStart_.byteOffset);
  else
    encoding.decodeRunBackwards(codePoints_, positions_, kBlockSize, blockCount_, text_.data, text_.byteSize,
                                blockStart_.byteOffset);
  return blockCount_ > 0;
}

void CCodePointReader::restart(CStringPos pos) {
  blockStart_ = pos.isEnd() ? CStringPos{text::length(text_), text_.byteSize} : pos;
  blockCount_ = 0;
  blockIndex_ = 0;
}

}  // namespace orlo
