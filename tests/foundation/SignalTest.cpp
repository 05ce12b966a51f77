#include "foundation/Signal.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>
#include <vector>

namespace orlo {
namespace {

TEST(Signal, IsNotSetAtFirst) {
  EXPECT_FALSE(getSignalFactory()->createSignal()->wait(0));
}

TEST(Signal, StaysSetUntilItIsReset) {
  const P<ISignal> signal = getSignalFactory()->createSignal();
  signal->set();
  EXPECT_TRUE(signal->wait(0));
  EXPECT_TRUE(signal->wait(0));
  signal->wait();
  signal->reset();
  EXPECT_FALSE(signal->wait(0));
}

TEST(Signal, IsWaitedForAsLongAsAsked) {
  const P<ISignal> signal = getSignalFactory()->createSignal();
  const auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(signal->wait(30));
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(30));
}

TEST(Signal, LetsEveryWaitingThreadPass) {
  const P<ISignal> signal = getSignalFactory()->createSignal();
  int written = 0;
  std::vector<int> read(3, 0);
  std::vector<std::thread> threads;
  for (int& mine : read) {
    threads.emplace_back([&] {
      signal->wait();
      mine = written;
    });
  }
  written = 1;
  signal->set();
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(read, std::vector<int>(3, 1));
}

TEST(Signal, EndsAWaitWithATimeToo) {
  const P<ISignal> signal = getSignalFactory()->createSignal();
  std::thread other([&] { signal->set(); });
  EXPECT_TRUE(signal->wait(60000));
  other.join();
}

}  // namespace
}  // namespace orlo
