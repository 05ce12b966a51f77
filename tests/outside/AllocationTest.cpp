#include "tests/outside/Instance.h"

#include <gtest/gtest.h>

#include <atomic>
#include <new>

namespace {

std::atomic<bool> memoryIsGone = false;
std::atomic<int> refusals = 0;

}  // namespace

// The module uses this one in place of the library's, since the program exports it.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  if (memoryIsGone) {
    ++refusals;
    return nullptr;
  }
  try {
    return ::operator new(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

namespace {

TEST(Allocation, WithoutMemoryForAnInstanceTheHandleIsNullAndTheResultIsStill0) {
  const test::Module module;
  { const test::Instance warmUp(module); }
  int something = 0;
  void* handle = &something;
  memoryIsGone = true;
  const std::int32_t result = module.initInfoStore(&handle);
  memoryIsGone = false;
  EXPECT_EQ(result, 0);
  EXPECT_EQ(handle, nullptr);
  EXPECT_GT(refusals, 0);
  EXPECT_EQ(module.releaseInfoStore(handle), 0);

  EXPECT_EQ(module.initInfoStore(&handle), 0);
  EXPECT_NE(handle, nullptr);
  module.releaseInfoStore(handle);
}

}  // namespace
