#include "foundation/Pointer.h"
#include "tests/foundation/Counted.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace orlo {
namespace {

TEST(ReferenceCount, IsOneForAFreshObject) {
  CCounted object;
  EXPECT_EQ(object.referenceCount(), 1);
}

TEST(ReferenceCount, IsABareWordInsideTheObject) {
  EXPECT_EQ(sizeof(CReferencable), 2 * sizeof(void*));
}

TEST(ReferenceCount, ReachesTheSameCountThroughEveryInterface) {
  CCountedFace object;
  static_cast<ICountedFace&>(object).addRef();
  static_cast<IBase&>(object).addRef();
  EXPECT_EQ(object.referenceCount(), 3);
  static_cast<IBase&>(object).release();
  static_cast<CReferencable&>(object).release();
  EXPECT_EQ(object.referenceCount(), 1);
}

/// Hands itself to somebody while it goes.
class CSelfReferring : public CCountedFace {
public:
  ~CSelfReferring() override {
    ++destructions;
    countInside = referenceCount();
    const P<ICountedFace> handedOut(this);
    addRef();
    release();
  }
  static inline int destructions = 0;
  static inline std::int32_t countInside = 0;
};

TEST(ReferenceCount, DestroysOnceWhenTheDestructorRefersToItsOwnObject) {
  makeObject<CSelfReferring>();
  EXPECT_EQ(CSelfReferring::destructions, 1);
  EXPECT_EQ(CSelfReferring::countInside, -1000000);
}

TEST(ReferenceCount, LeavesAnObjectOnTheStackAliveWhenAPointerToItGoes) {
  int destructions = 0;
  {
    CCountedFace object([&] { ++destructions; });
    {
      P<ICountedFace> pointer(&object);
      EXPECT_EQ(object.referenceCount(), 2);
    }
    EXPECT_EQ(destructions, 0);
    EXPECT_EQ(object.referenceCount(), 1);
  }
  EXPECT_EQ(destructions, 1);
}

TEST(ReferenceCount, EndsInDestroyWhichAClassMayOverride) {
  struct CRecycled : CCounted {
    void destroy() const override { ++recycled; }
    mutable int recycled = 0;
  };
  CRecycled object;
  static_cast<IBase&>(object).release();
  EXPECT_EQ(object.recycled, 1);
}

TEST(ReferenceCount, GoesAlongWhenAnObjectIsCopied) {
  CCounted object;
  object.addRef();
  const CCounted copy(object);
  EXPECT_EQ(copy.referenceCount(), 2);
}

TEST(ReferenceCount, StaysWhenAnObjectIsAssigned) {
  CCounted object;
  CCounted other;
  other.addRef();
  object = other;
  EXPECT_EQ(object.referenceCount(), 1);
}

TEST(ReferenceCount, EndsOnceWhenManyThreadsLetGo) {
  int destructions = 0;
  std::vector<int> written(4, 0);
  int sum = 0;
  P<CCountedFace> object = makeObject<CCountedFace>([&] {
    ++destructions;
    for (const int value : written) sum += value;
  });
  std::vector<std::thread> threads;
  for (int& mine : written) {
    threads.emplace_back([&mine, shared = P<ICountedFace>(object)]() mutable {
      for (int round = 0; round < 1000; ++round) P<ICountedFace> copy(shared);
      mine = 1;
      shared = nullptr;
    });
  }
  object = nullptr;
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(destructions, 1);
  EXPECT_EQ(sum, 4);
}

}  // namespace
}  // namespace orlo
