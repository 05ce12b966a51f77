#include "foundation/MemoryBlock.h"
#include "foundation/Pointer.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>

namespace orlo {
namespace {

std::string contentOf(const IMemoryBlock& block) {
  return {reinterpret_cast<const char*>(block.getData()), block.getSize()};
}

TEST(MemoryBlock, HasTheSizeAskedForAndZeros) {
  const P<CMemoryBlock> block = makeObject<CMemoryBlock>(std::size_t{3});
  EXPECT_EQ(contentOf(*block), std::string(3, '\0'));
}

TEST(MemoryBlock, TakesTheSizeOfWhatIsAssigned) {
  CMemoryBlock block(2);
  block.assign("longer", 6);
  EXPECT_EQ(contentOf(block), "longer");
  block.assign("s", 1);
  EXPECT_EQ(contentOf(block), "s");
  block.assign(nullptr, 0);
  EXPECT_EQ(block.getSize(), 0U);
}

TEST(MemoryBlock, MayBeAssignedAPartOfItself) {
  CMemoryBlock block(1);
  block.assign("abcdef", 6);
  block.assign(block.getData() + 2, 3);
  EXPECT_EQ(contentOf(block), "cde");
}

TEST(MemoryBlock, LeavesBytesOfSomebodyElseAlone) {
  std::array<std::byte, 2> bytes{std::byte{'o'}, std::byte{'k'}};
  {
    CMemoryBlock block(bytes.data(), bytes.size());
    EXPECT_EQ(block.getData(), bytes.data());
    block.assign("new", 3);
    EXPECT_NE(block.getData(), bytes.data());
    EXPECT_EQ(contentOf(block), "new");
  }
  EXPECT_EQ(std::memcmp(bytes.data(), "ok", 2), 0);
}

}  // namespace
}  // namespace orlo
