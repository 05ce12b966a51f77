#include "foundation/Mutex.h"
#include "foundation/posix/SharedMemory.h"
#include "tests/foundation/ChildProcess.h"
#include "tests/foundation/TextOf.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <pthread.h>
#include <system_error>
#include <thread>

namespace orlo {
namespace {

/// A name that no other run of the tests uses.
String freshName() {
  static int count = 0;
  return fromUTF8("Test/lock " + std::to_string(getpid()) + " " + std::to_string(++count));
}

TEST(GlobalMutex, IsOneLockForAllWhoKnowItsName) {
  const String name = freshName();
  const P<IMutex> mutex = getMutexFactory()->createGlobalMutex(name);
  const P<IMutex> same = getMutexFactory()->createGlobalMutex(name);
  const P<IMutex> other = getMutexFactory()->createGlobalMutex(freshName());
  mutex->lock();
  std::thread([&] {
    EXPECT_FALSE(same->tryLock(0));
    EXPECT_TRUE(other->tryLock(0));
    other->unlock();
  }).join();
  mutex->unlock();
  std::thread([&] {
    EXPECT_TRUE(same->tryLock(0));
    same->unlock();
  }).join();
}

TEST(GlobalMutex, MayBeTakenAgainByItsThread) {
  const P<IMutex> mutex = getMutexFactory()->createGlobalMutex(freshName());
  mutex->lock();
  mutex->lock();
  mutex->unlock();
  std::thread([&] { EXPECT_FALSE(mutex->tryLock(0)); }).join();
  mutex->unlock();
  std::thread([&] {
    EXPECT_TRUE(mutex->tryLock(0));
    mutex->unlock();
  }).join();
}

TEST(GlobalMutex, KeepsAnotherProcessOutUntilItIsFree) {
  const String name = freshName();
  CChildProcess child([&name](CChildProcess& self) {
    const P<IMutex> mutex = getMutexFactory()->createGlobalMutex(name);
    mutex->lock();
    self.tell();
    self.waitForParent();
    mutex->unlock();
    self.tell();
    self.waitForParent();
  });
  child.waitForWord();
  const P<IMutex> mutex = getMutexFactory()->createGlobalMutex(name);
  EXPECT_FALSE(mutex->tryLock(0));
  const auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(mutex->tryLock(30));
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(30));
  child.goOn();
  child.waitForWord();
  EXPECT_TRUE(mutex->tryLock(0));
  mutex->unlock();
  child.goOn();
}

TEST(GlobalMutex, LetsTwoProcessesTakeTurns) {
  constexpr int rounds = 200;
  const String name = freshName();
  const posix::CSharedMemory memory(textOf(name) + " counter", sizeof(int), [](void*) {});
  auto* counter = static_cast<volatile int*>(memory.get());
  const auto countUp = [counter, &name] {
    const P<IMutex> mutex = getMutexFactory()->createGlobalMutex(name);
    for (int round = 0; round < rounds; ++round) {
      const CMutexLock lock(mutex);
      const int value = *counter;
      std::this_thread::sleep_for(std::chrono::microseconds(20));
      *counter = value + 1;
    }
  };
  CChildProcess first([&](CChildProcess&) { countUp(); });
  CChildProcess second([&](CChildProcess&) { countUp(); });
  first.join();
  second.join();
  EXPECT_EQ(*counter, 2 * rounds);
}

TEST(GlobalMutex, IsTakenOverFromAProcessThatDiedWithIt) {
  const String name = freshName();
  const P<IMutex> mutex = getMutexFactory()->createGlobalMutex(name);
  CChildProcess child([&name](CChildProcess& self) {
    getMutexFactory()->createGlobalMutex(name).detach()->lock();
    self.tell();
    self.waitForParent();
  });
  child.waitForWord();
  EXPECT_FALSE(mutex->tryLock(0));
  child.goOn();
  child.join();
  EXPECT_NO_THROW(mutex->lock());
  std::thread([&] { EXPECT_FALSE(mutex->tryLock(0)); }).join();
  mutex->unlock();
  EXPECT_TRUE(mutex->tryLock(0));
  mutex->unlock();
}

TEST(GlobalMutex, IsTakenOverWhileItIsWaitedFor) {
  const String name = freshName();
  CChildProcess child([&name](CChildProcess& self) {
    getMutexFactory()->createGlobalMutex(name).detach()->lock();
    self.tell();
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
  });
  child.waitForWord();
  const P<IMutex> mutex = getMutexFactory()->createGlobalMutex(name);
  EXPECT_TRUE(mutex->tryLock(60000));
  mutex->unlock();
  child.join();
}

TEST(GlobalMutex, IsFreshWhenAllWhoKnewItHaveDied) {
  const String name = freshName();
  {
    CChildProcess child([&name](CChildProcess&) { getMutexFactory()->createGlobalMutex(name).detach()->lock(); });
    child.join();
  }
  const P<IMutex> mutex = getMutexFactory()->createGlobalMutex(name);
  EXPECT_TRUE(mutex->tryLock(0));
  mutex->unlock();
}

TEST(GlobalMutex, SaysWhichOneCannotBeMade) {
  const std::string longName(300, 'x');
  try {
    getMutexFactory()->createGlobalMutex(fromUTF8(longName));
    FAIL();
  } catch (const CException& error) {
    EXPECT_EQ(messageOf(error), "Error createing global mutex " + longName);
  }
}

TEST(GlobalMutex, SaysWhichOneCannotBeLocked) {
  const String name = freshName();
  const P<IMutex> mutex = getMutexFactory()->createGlobalMutex(name);
  CChildProcess([&name](CChildProcess&) { getMutexFactory()->createGlobalMutex(name).detach()->lock(); }).join();
  {
    // Giving it back without having repaired it makes it useless.
    const posix::CSharedMemory memory(textOf(name), sizeof(pthread_mutex_t), [](void*) { FAIL() << "made twice"; });
    auto* raw = static_cast<pthread_mutex_t*>(memory.get());
    ASSERT_EQ(pthread_mutex_lock(raw), EOWNERDEAD);
    pthread_mutex_unlock(raw);
  }
  for (const auto lock : {+[](IMutex& m) { m.lock(); }, +[](IMutex& m) { m.tryLock(0); }}) {
    try {
      lock(*mutex);
      ADD_FAILURE() << "locked";
    } catch (const CException& error) {
      EXPECT_EQ(messageOf(error), "Error locking global mutex " + textOf(name));
    }
  }
}

TEST(SharedMemory, IsTheSameForOneNameAndGoneWithItsLastUser) {
  static int prepared = 0;
  const std::string name = textOf(freshName());
  const auto prepare = [](void* memory) {
    ++prepared;
    EXPECT_EQ(*static_cast<int*>(memory), 0);
    *static_cast<int*>(memory) = 5;
  };
  {
    const posix::CSharedMemory first(name, sizeof(int), prepare);
    {
      const posix::CSharedMemory second(name, sizeof(int), prepare);
      EXPECT_EQ(*static_cast<int*>(second.get()), 5);
      *static_cast<int*>(second.get()) = 6;
    }
    EXPECT_EQ(*static_cast<int*>(first.get()), 6);
    EXPECT_EQ(prepared, 1);
  }
  const posix::CSharedMemory again(name, sizeof(int), prepare);
  EXPECT_EQ(prepared, 2);
  EXPECT_EQ(*static_cast<int*>(again.get()), 5);
}

TEST(SharedMemory, IsMadeAfreshIfItsPreparationFailed) {
  const std::string name = textOf(freshName());
  const auto fail = [](void* memory) {
    *static_cast<int*>(memory) = 1;
    throw std::system_error(ENOMEM, std::generic_category());
  };
  EXPECT_THROW(posix::CSharedMemory(name, sizeof(int), fail), std::system_error);
  const posix::CSharedMemory memory(name, sizeof(int), [](void*) {});
  EXPECT_EQ(*static_cast<int*>(memory.get()), 0);
}

}  // namespace
}  // namespace orlo
