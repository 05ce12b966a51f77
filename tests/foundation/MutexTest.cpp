#include "foundation/Mutex.h"

#include <gtest/gtest.h>

#include <chrono>
#include <latch>
#include <stdexcept>
#include <thread>
#include <vector>

namespace orlo {
namespace {

/// Whether another thread gets the mutex within that time. It gives it back.
bool isFree(IMutex& mutex, std::uint32_t milliseconds = 0) {
  bool result = false;
  std::thread other([&] {
    result = mutex.tryLock(milliseconds);
    if (result) mutex.unlock();
  });
  other.join();
  return result;
}

TEST(Mutex, KeepsOtherThreadsOut) {
  const P<IMutex> mutex = getMutexFactory()->createMutex();
  EXPECT_TRUE(isFree(*mutex));
  mutex->lock();
  EXPECT_FALSE(isFree(*mutex));
  mutex->unlock();
  EXPECT_TRUE(isFree(*mutex));
}

TEST(Mutex, IsFreeAfterAsManyUnlocksAsItsThreadHasLocks) {
  const P<IMutex> mutex = getMutexFactory()->createMutex();
  mutex->lock();
  mutex->lock();
  EXPECT_TRUE(mutex->tryLock(0));
  mutex->unlock();
  mutex->unlock();
  EXPECT_FALSE(isFree(*mutex));
  mutex->unlock();
  EXPECT_TRUE(isFree(*mutex));
}

TEST(Mutex, IsTriedForAsLongAsAsked) {
  const P<IMutex> mutex = getMutexFactory()->createMutex();
  mutex->lock();
  const auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(isFree(*mutex, 30));
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(30));
  mutex->unlock();
}

TEST(Mutex, IsTakenByWhoWaitsOnceItIsFree) {
  const P<IMutex> mutex = getMutexFactory()->createMutex();
  std::latch locked(1);
  std::thread other([&] {
    const CMutexLock lock(mutex);
    locked.count_down();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  });
  locked.wait();
  EXPECT_TRUE(mutex->tryLock(60000));
  mutex->unlock();
  other.join();
}

TEST(Mutex, MakesThreadsTakeTurns) {
  const P<IMutex> mutex = getMutexFactory()->createMutex();
  int counter = 0;
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      for (int round = 0; round < 1000; ++round) {
        const CMutexLock lock(mutex);
        ++counter;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(counter, 4000);
}

TEST(MutexLock, LetsGoWhenAnExceptionPassesThrough) {
  const P<IMutex> mutex = getMutexFactory()->createMutex();
  try {
    const CMutexLock lock(mutex);
    throw std::runtime_error("out");
  } catch (const std::runtime_error&) {
  }
  EXPECT_TRUE(isFree(*mutex));
}

TEST(MutexLock, KeepsItsMutexAlive) {
  P<IMutex> mutex = getMutexFactory()->createMutex();
  const CMutexLock lock(mutex.get());
  mutex = nullptr;
}

TEST(MutexLock, TakesOverALockThatIsHeld) {
  const P<IMutex> mutex = getMutexFactory()->createMutex();
  mutex->lock();
  {
    const CMutexLock lock(mutex, std::adopt_lock);
    EXPECT_FALSE(isFree(*mutex));
  }
  EXPECT_TRUE(isFree(*mutex));
}

}  // namespace
}  // namespace orlo
