#include "foundation/MemoryBlock.h"

#include <cstring>

namespace orlo {

CMemoryBlockBase::~CMemoryBlockBase() {
  if (owned_) delete[] data_;
}

void CMemoryBlockBase::assign(const void* bytes, std::size_t size) {
  auto* copy = new std::byte[size];
  if (size > 0) std::memcpy(copy, bytes, size);
  if (owned_) delete[] data_;
  data_ = copy;
  size_ = size;
  owned_ = true;
}

CMemoryBlock::CMemoryBlock(std::size_t size) : CMemoryBlockBase(new std::byte[size](), size, true) {}

}  // namespace orlo
