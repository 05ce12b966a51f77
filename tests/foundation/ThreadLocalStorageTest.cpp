#include "foundation/Cast.h"
#include "foundation/Error.h"
#include "foundation/ThreadLocalStorage.h"
#include "tests/foundation/Counted.h"

#include <gtest/gtest.h>

#include <latch>
#include <thread>
#include <vector>

namespace orlo {
namespace {

TEST(SimpleThreadLocalStorage, IsNullInEveryThreadUntilItIsSetThere) {
  const P<ISimpleThreadLocalStorage> storage =
      getSimpleThreadLocalStorageFactory()->createSimpleThreadLocalStorage(nullptr);
  int value = 0;
  EXPECT_EQ(storage->get(), nullptr);
  storage->set(&value);
  EXPECT_EQ(storage->get(), &value);
  std::thread([&] { EXPECT_EQ(storage->get(), nullptr); }).join();
}

TEST(SimpleThreadLocalStorage, HandsTheValueOverWhenItsThreadEnds) {
  static void* ended = nullptr;
  const P<ISimpleThreadLocalStorage> storage =
      getSimpleThreadLocalStorageFactory()->createSimpleThreadLocalStorage([](void* value) { ended = value; });
  int value = 0;
  std::thread([&] { storage->set(&value); }).join();
  EXPECT_EQ(ended, &value);
}

TEST(SimpleThreadLocalStorage, SaysSoWhenTheProcessHasNoSlotLeft) {
  std::vector<P<ISimpleThreadLocalStorage>> taken;
  EXPECT_THROW(
      {
        for (int i = 0; i < 100000; ++i)
          taken.push_back(getSimpleThreadLocalStorageFactory()->createSimpleThreadLocalStorage(nullptr));
      },
      CError);
}

TEST(ThreadLocalStorage, HoldsAnObjectForEachThread) {
  CThreadLocalStorage storage;
  CCounted object;
  EXPECT_FALSE(storage.has());
  EXPECT_FALSE(storage.get());
  storage.set(P<IBase>(&object));
  EXPECT_TRUE(storage.has());
  EXPECT_EQ(cast<CCounted>(storage.get()), &object);
  EXPECT_EQ(object.referenceCount(), 2);
  std::thread([&] {
    EXPECT_FALSE(storage.has());
    CCounted other;
    storage.set(P<IBase>(&other));
    EXPECT_EQ(cast<CCounted>(storage.get()), &other);
    storage.clear();
    EXPECT_FALSE(storage.has());
    EXPECT_EQ(other.referenceCount(), 1);
  }).join();
  EXPECT_EQ(cast<CCounted>(storage.get()), &object);
  storage.clear();
  storage.clear();
  EXPECT_FALSE(storage.has());
  EXPECT_EQ(object.referenceCount(), 1);
}

TEST(ThreadLocalStorage, ReleasesAThreadsObjectAtTheThreadsEnd) {
  CThreadLocalStorage storage;
  bool released = false;
  std::thread([&] {
    storage.set(P<IBase>(makeObject<CCounted>([&] { released = true; })));
    EXPECT_FALSE(released);
  }).join();
  EXPECT_TRUE(released);
}

TEST(ThreadLocalStorage, MayBeUsedByAnObjectThatGoesAtTheThreadsEnd) {
  CThreadLocalStorage storage;
  CCounted late;
  bool hadLate = false;
  std::thread([&] {
    storage.set(P<IBase>(makeObject<CCounted>([&] {
      storage.set(P<IBase>(&late));
      hadLate = storage.has();
    })));
  }).join();
  EXPECT_TRUE(hadLate);
  EXPECT_EQ(late.referenceCount(), 1);
}

TEST(ThreadLocalStorage, ReleasesTheObjectsOfAllThreadsWithItself) {
  CCounted mine;
  CCounted theirs;
  std::latch stored(1);
  std::latch gone(1);
  P<CThreadLocalStorage> storage = makeObject<CThreadLocalStorage>();
  storage->set(P<IBase>(&mine));
  std::thread other([&, raw = storage.get()] {
    raw->set(P<IBase>(&theirs));
    stored.count_down();
    gone.wait();
  });
  stored.wait();
  storage = nullptr;
  EXPECT_EQ(mine.referenceCount(), 1);
  EXPECT_EQ(theirs.referenceCount(), 1);
  gone.count_down();
  other.join();
}

TEST(ThreadLocalStorage, IsSafeWhileOtherStoragesComeAndGo) {
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([] {
      for (int round = 0; round < 200; ++round) {
        CCounted object;
        CThreadLocalStorage storage;
        storage.set(P<IBase>(&object));
        EXPECT_EQ(cast<CCounted>(storage.get()), &object);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

TEST(ThreadLocalStorageManager, GivesFreedSlotsOutAgainEmpty) {
  CThreadLocalStorageManager manager;
  CCounted object;
  EXPECT_EQ(manager.allocateSlot(), 0U);
  EXPECT_EQ(manager.allocateSlot(), 1U);
  EXPECT_EQ(manager.allocateSlot(), 2U);
  manager.set(1, P<IBase>(&object));
  manager.freeSlot(1);
  EXPECT_EQ(object.referenceCount(), 1);
  EXPECT_EQ(manager.allocateSlot(), 1U);
  EXPECT_FALSE(manager.get(1));
  EXPECT_EQ(manager.allocateSlot(), 3U);
}

TEST(ThreadLocalStorageManager, ShrinksOverFreeSlotsAtItsEnd) {
  CThreadLocalStorageManager manager;
  for (int i = 0; i < 5; ++i) manager.allocateSlot();
  manager.freeSlot(1);
  manager.freeSlot(3);
  EXPECT_EQ(manager.getSlotCount(), 5U);
  manager.freeSlot(4);
  EXPECT_EQ(manager.getSlotCount(), 3U);
  manager.freeSlot(2);
  EXPECT_EQ(manager.getSlotCount(), 1U);
  EXPECT_EQ(manager.allocateSlot(), 1U);
  EXPECT_EQ(manager.getSlotCount(), 2U);
}

TEST(ThreadLocalStorageManager, ReleasesWhatIsLeftWhenItGoes) {
  CCounted object;
  {
    CThreadLocalStorageManager manager;
    manager.set(manager.allocateSlot(), P<IBase>(&object));
    EXPECT_EQ(object.referenceCount(), 2);
  }
  EXPECT_EQ(object.referenceCount(), 1);
}

}  // namespace
}  // namespace orlo
