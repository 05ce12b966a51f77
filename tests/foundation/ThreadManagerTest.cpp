#include "foundation/ThreadManager.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace orlo {
namespace {

template <class Action>
std::chrono::steady_clock::duration timeOf(Action action) {
  const auto start = std::chrono::steady_clock::now();
  action();
  return std::chrono::steady_clock::now() - start;
}

TEST(ThreadManager, SleepsAsLongAsAsked) {
  EXPECT_GE(timeOf([] { getThreadManager()->sleep(20); }), std::chrono::milliseconds(20));
}

TEST(ThreadManager, SleepsAMillisecondInAYieldIfAskedTo) {
  EXPECT_GE(timeOf([] { getThreadManager()->yield(true); }), std::chrono::milliseconds(1));
  getThreadManager()->yield(false);
}

TEST(ThreadManager, TellsThreadsApart) {
  const std::uint32_t own = getThreadManager()->getCurrentThreadId();
  EXPECT_EQ(getThreadManager()->getCurrentThreadId(), own);
  std::uint32_t others = own;
  std::thread([&] { others = getThreadManager()->getCurrentThreadId(); }).join();
  EXPECT_NE(others, own);
}

}  // namespace
}  // namespace orlo
