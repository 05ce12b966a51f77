#include "tests/foundation_strings/TextSamples.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<int> allocations{0};

void* counted(std::size_t size) {
  allocations.fetch_add(1, std::memory_order_relaxed);
  return std::malloc(size > 0 ? size : 1);
}

}  // namespace

// Inlined, a pair of these looks to the compiler like new met by free.
[[gnu::noinline]] void* operator new(std::size_t size) {
  if (void* memory = counted(size)) return memory;
  throw std::bad_alloc();
}
[[gnu::noinline]] void* operator new[](std::size_t size) {
  return operator new(size);
}
[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return counted(size);
}
[[gnu::noinline]] void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return counted(size);
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
  std::free(memory);
}
[[gnu::noinline]] void operator delete[](void* memory) noexcept {
  std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
[[gnu::noinline]] void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}

using namespace samples;

namespace {

template <class Action>
int allocationsOf(Action action) {
  const int before = allocations.load();
  action();
  return allocations.load() - before;
}

/// The encodings are made at their first use; that is not what is counted.
class Allocation : public testing::Test {
protected:
  const String made_[5] = {"a", L"a", u"a", U"a", u8"a"};
};

TEST_F(Allocation, HappensOnceForAStringOfALiteral) {
  EXPECT_EQ(allocationsOf([] { const String text("literal"); }), 1);
  EXPECT_EQ(allocationsOf([] { const String text(L"literal"); }), 1);
  EXPECT_EQ(allocationsOf([] { const String text(u"literal"); }), 1);
  EXPECT_EQ(allocationsOf([] { const String textOf(U"literal"); }), 1);
  EXPECT_EQ(allocationsOf([] { const String text(u8"literal"); }), 1);
}

TEST_F(Allocation, IsNotNeededForACopyAnEmptyOrANullString) {
  const String text = "text";
  const String warm[] = {String(), String(nullptr)};
  EXPECT_EQ(allocationsOf([&] { const String copy(text); }), 0);
  EXPECT_EQ(allocationsOf([] { const String empty; }), 0);
  EXPECT_EQ(allocationsOf([] { const String null(nullptr); }), 0);
}

TEST_F(Allocation, IsNotNeededToConvertToTheSameForm) {
  const String wide = u"wide";
  EXPECT_EQ(allocationsOf([&] { toWide(wide); }), 0);
}

TEST_F(Allocation, IsNotNeededToCompareSearchOrWalk) {
  const String text = toUTF8(U"The quick brown fox jumps over the lazy dog, größer als ein Häuschen");
  const String wide = toWide(text);
  EXPECT_EQ(allocationsOf([&] {
              text.compare(wide);
              text.compareIgnoreCase(u"the quick");
              text.equalsIgnoreCase(L"the quick");
              text.startsWith("The");
              text.endsWith(u"Häuschen");
              text.find(
                  "\xF6\xDF"
                  "er");
              text.findLastIgnoreCase(U"THE");
              text.findAnyOf(u8"äö");
              text.findLastNoneOf("abcdefghijklmnopqrstuvwxyz");
              CStringPos pos;
              while (text.next(pos)) {
              }
              while (text.previous(pos)) {
              }
              text.charAt(text.length() - 1);
            }),
            0);
}

}  // namespace
