#include "foundation/Singleton.h"
#include "foundation/ThreadManager.h"
#include "tests/foundation/Counted.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <latch>
#include <stdexcept>
#include <thread>
#include <type_traits>
#include <vector>

namespace orlo {
namespace {

// What a function-local static needs to take no guard, neither for its start nor for its end.
static_assert(std::is_trivially_destructible_v<TSingleton<CCounted>>);
constinit TSingleton<CCounted> constantlyInitialised;

TEST(CheckWords, HoldOnlyBothTogether) {
  CCheckWords words;
  EXPECT_FALSE(words.hold());
  words.first = 0x3D92A405;
  EXPECT_FALSE(words.hold());
  words.second = 0x73DF5089;
  EXPECT_TRUE(words.hold());
  words.first = 0;
  EXPECT_FALSE(words.hold());
  words.first = 0x73DF5089;
  words.second = 0x3D92A405;
  EXPECT_FALSE(words.hold());
}

TEST(CheckWords, AreSetToTheTwoValuesAndClearedToZero) {
  CCheckWords words;
  words.set();
  EXPECT_EQ(words.first, 0x3D92A405U);
  EXPECT_EQ(words.second, 0x73DF5089U);
  words.clear();
  EXPECT_EQ(words.first, 0U);
  EXPECT_EQ(words.second, 0U);
}

/// Counts the waits of a millisecond, and calls an action at the third.
class CWaitingWatch : public CObject, public IThreadManager {
public:
  explicit CWaitingWatch(std::function<void()> atThird) : atThird_(std::move(atThird)), original_(getThreadManager()) {
    getThreadManager() = this;
  }
  ~CWaitingWatch() override { getThreadManager() = original_; }

  P<IThread> createThread(P<IAction> action) override { return original_->createThread(std::move(action)); }
  void yield(bool sleepAtLeastOneMs) override {
    if (sleepAtLeastOneMs && ++sleeps == 3) atThird_();
    original_->yield(sleepAtLeastOneMs);
  }
  void sleep(std::uint32_t milliseconds) override { original_->sleep(milliseconds); }
  std::uint32_t getCurrentThreadId() override { return original_->getCurrentThreadId(); }

  std::atomic<int> sleeps{0};

private:
  std::function<void()> atThird_;
  P<IThreadManager> original_;
};

TEST(Singleton, IsMadeAtItsFirstUseAndOnce) {
  static TSingleton<CCounted> singleton;
  EXPECT_FALSE(singleton.isReady());
  int made = 0;
  const auto create = [&made] {
    ++made;
    return makeObject<CCounted>();
  };
  P<CCounted>& first = singleton.get(create);
  P<CCounted>& second = singleton.get(create);
  EXPECT_TRUE(singleton.isReady());
  EXPECT_EQ(made, 1);
  EXPECT_EQ(&first, &second);
  EXPECT_EQ(first->referenceCount(), 1);
  EXPECT_FALSE(constantlyInitialised.isReady());
}

TEST(Singleton, IsTheSameForTwoThreadsAndTheSecondSleepsUntilItIsThere) {
  static TSingleton<CCounted> singleton;
  std::latch making(1);
  std::latch mayFinish(1);
  CWaitingWatch watch([&] {
    EXPECT_FALSE(singleton.isReady());
    mayFinish.count_down();
  });
  std::atomic<int> made{0};
  const auto create = [&] {
    ++made;
    making.count_down();
    mayFinish.wait();
    return makeObject<CCounted>();
  };
  CCounted* ofFirst = nullptr;
  std::thread first([&] { ofFirst = singleton.get(create).get(); });
  making.wait();
  CCounted* ofSecond = singleton.get(create).get();
  first.join();
  EXPECT_EQ(made, 1);
  EXPECT_EQ(ofFirst, ofSecond);
  EXPECT_NE(ofFirst, nullptr);
  EXPECT_GE(watch.sleeps, 3);
}

TEST(Singleton, IsTheSameForAllOfManyThreads) {
  static std::array<TSingleton<CCounted>, 50> singletons;
  for (TSingleton<CCounted>& singleton : singletons) {
    std::atomic<int> made{0};
    std::latch start(4);
    std::vector<CCounted*> seen(4);
    std::vector<std::thread> threads;
    for (CCounted*& mine : seen) {
      threads.emplace_back([&] {
        start.arrive_and_wait();
        P<CCounted>& object = singleton.get([&made] {
          ++made;
          return makeObject<CCounted>();
        });
        mine = object.get();
      });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(made, 1);
    for (const CCounted* object : seen) EXPECT_EQ(object, seen.front());
  }
}

TEST(Singleton, IsMadeInsideAnotherOneThoughItsFirstVisitorWaitsForTheLock) {
  static TSingleton<CCounted> outer;
  static TSingleton<CCounted> inner;
  const auto createInner = [] { return makeObject<CCounted>(); };
  std::latch outerInTheMaking(1);
  std::latch innerAsked(1);
  std::thread other([&] {
    outerInTheMaking.wait();
    innerAsked.count_down();
    inner.get(createInner);
  });
  outer.get([&] {
    outerInTheMaking.count_down();
    innerAsked.wait();
    getThreadManager()->sleep(20);
    EXPECT_TRUE(inner.get(createInner));
    return makeObject<CCounted>();
  });
  other.join();
  EXPECT_TRUE(outer.isReady());
}

TEST(Singleton, IsMadeByTheNextVisitorIfTheFirstFails) {
  static TSingleton<CCounted> singleton;
  EXPECT_THROW(singleton.get([]() -> P<CCounted> { throw std::runtime_error("not now"); }), std::runtime_error);
  EXPECT_FALSE(singleton.isReady());
  EXPECT_TRUE(singleton.get([] { return makeObject<CCounted>(); }));
}

TEST(Singleton, RefusesToBeMadeOutOfItself) {
  static TSingleton<CCounted> singleton;
  struct CMaker {
    static P<CCounted> make() { return singleton.get(&make); }
  };
  EXPECT_THROW(singleton.get(&CMaker::make), std::logic_error);
}

TEST(Singleton, LetsTheLockGoWhenItIsThere) {
  static TSingleton<CCounted> singleton;
  static TSingleton<CCounted> another;
  singleton.get([] { return makeObject<CCounted>(); });
  std::thread other([] { another.get([] { return makeObject<CCounted>(); }); });
  other.join();
  EXPECT_TRUE(another.isReady());
}

TEST(Singleton, IsWhatTheThreadManagerIs) {
  EXPECT_TRUE(getThreadManager());
  EXPECT_EQ(&getThreadManager(), &getThreadManager());
}

/// Writes its name when it goes.
P<CCounted> makeNamed(const char* name) {
  return makeObject<CCounted>([name] { std::fprintf(stderr, "%s ", name); });
}

void exitWithNestedSingletons() {
  static TSingleton<CCounted> first;
  static TSingleton<CCounted> second;
  static TSingleton<CCounted> inner;
  first.get([] { return makeNamed("first"); });
  second.get([] {
    inner.get([] { return makeNamed("inner"); });
    return makeNamed("second");
  });
  std::exit(0);
}

P<CCounted>& getEarly() {
  static TSingleton<CCounted> early;
  return early.get([] { return makeNamed("early"); });
}

void exitWithALateVisitor() {
  static TSingleton<CCounted> lasting;
  lasting.get([] {
    return makeObject<CCounted>([] {
      std::fprintf(stderr, "lasting ");
      getEarly();
    });
  });
  getEarly();
  std::exit(0);
}

TEST(SingletonDeathTest, GoesAtTheEndInReverseOrderOfCreation) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(exitWithNestedSingletons(), testing::ExitedWithCode(0), "^second inner first $");
}

TEST(SingletonDeathTest, ComesBackIfItIsAskedForDuringTheEnd) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(exitWithALateVisitor(), testing::ExitedWithCode(0), "^early lasting early $");
}

}  // namespace
}  // namespace orlo
