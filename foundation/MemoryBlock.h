#pragma once

#include "foundation/Object.h"

#include <cstddef>

namespace orlo {

/// A counted block of bytes.
class IMemoryBlock : public virtual IBase {
public:
  virtual std::byte* getData() = 0;
  virtual const std::byte* getData() const = 0;
  virtual std::size_t getSize() const = 0;
  /// Makes the block that size and copies the bytes in. They may lie inside the block.
  virtual void assign(const void* bytes, std::size_t size) = 0;
};

class CMemoryBlockBase : public CObject, public IMemoryBlock {
public:
  CMemoryBlockBase(const CMemoryBlockBase&) = delete;
  CMemoryBlockBase& operator=(const CMemoryBlockBase&) = delete;
  ~CMemoryBlockBase() override;

  std::byte* getData() override { return data_; }
  const std::byte* getData() const override { return data_; }
  std::size_t getSize() const override { return size_; }
  void assign(const void* bytes, std::size_t size) override;

protected:
  CMemoryBlockBase(std::byte* data, std::size_t size, bool owned) : data_(data), size_(size), owned_(owned) {}

private:
  std::byte* data_;
  std::size_t size_;
  bool owned_;
};

class CMemoryBlock : public CMemoryBlockBase {
public:
  /// Zeroed bytes of its own.
  explicit CMemoryBlock(std::size_t size);
  /// Bytes of somebody else, who keeps them for as long as the block lives. assign() copies, it does not write there.
  CMemoryBlock(std::byte* data, std::size_t size) : CMemoryBlockBase(data, size, false) {}
};

}  // namespace orlo
