#include "foundation/CleaningSimpleArray.h"
#include "foundation/Pointer.h"
#include "tests/foundation/Counted.h"

#include <gmock/gmock.h>

#include <list>
#include <random>
#include <stdexcept>
#include <vector>

namespace orlo {
namespace {

using testing::ElementsAre;

/// Numbers, with the rules of growth that every array has.
class CNumbers : public TCleaningSimpleArray<int> {
public:
  using TCleaningSimpleArray<int>::TCleaningSimpleArray;
  using CSimpleArrayTemplateBase::grownCapacity;
};

template <class E>
std::vector<E> elementsOf(const TSimpleArray<E>& array) {
  return {array.begin(), array.end()};
}

TEST(SimpleArray, HasNoMemoryAtFirst) {
  const TSimpleArray<int> array;
  EXPECT_EQ(array.getCount(), 0);
  EXPECT_EQ(array.getCapacity(), 0);
  EXPECT_EQ(array.getGrowStep(), 10);
  EXPECT_TRUE(array.isEmpty());
}

TEST(SimpleArray, GrowsByItsStep) {
  TSimpleArray<int> array(4);
  std::vector<int> capacities;
  for (int i = 0; i < 10; ++i) {
    array.add(i);
    capacities.push_back(array.getCapacity());
  }
  EXPECT_THAT(capacities, ElementsAre(4, 4, 4, 4, 8, 8, 8, 8, 12, 12));
  EXPECT_THAT(elementsOf(array), ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8, 9));
}

TEST(SimpleArray, GrowsToWhatIsNeededIfThatIsMoreThanItsStep) {
  EXPECT_EQ(CNumbers::grownCapacity(10, 10, 10, 1), 20);
  EXPECT_EQ(CNumbers::grownCapacity(10, 10, 10, 15), 25);
  EXPECT_EQ(CNumbers::grownCapacity(10, 3, 10, 18), 21);
  EXPECT_EQ(CNumbers::grownCapacity(0, 0, 0, 1), 1);
}

TEST(SimpleArray, CannotHoldMoreThanItCanCount) {
  constexpr int kMost = std::numeric_limits<int>::max();
  EXPECT_EQ(CNumbers::grownCapacity(kMost - 1, kMost - 1, 10, 1), kMost);
  EXPECT_THROW(CNumbers::grownCapacity(kMost, kMost, 10, 1), std::length_error);
}

TEST(SimpleArray, MakesRoomInTheMiddle) {
  TSimpleArray<int> array(1);
  for (const int number : {0, 1, 2}) array.add(number);
  array.insert(1, 7);
  array.insert(0, 8);
  array.insert(5, 9);
  EXPECT_THAT(elementsOf(array), ElementsAre(8, 0, 7, 1, 2, 9));
}

TEST(SimpleArray, InsertsWhatItHoldsItself) {
  CCounted object;
  TSimpleArray<P<CCounted>> array(1);
  array.add(&object);
  array.insert(0, array[0]);
  array.insert(1, array[1]);
  EXPECT_THAT(elementsOf(array), testing::Each(P<CCounted>(&object)));
  EXPECT_EQ(array.getCount(), 3);
  EXPECT_EQ(object.referenceCount(), 4);
}

TEST(SimpleArray, ClosesGaps) {
  TSimpleArray<int> array;
  for (int i = 0; i < 8; ++i) array.add(i);
  array.removeAt(7);
  array.removeAt(0);
  array.removeAt(2, 3);
  EXPECT_THAT(elementsOf(array), ElementsAre(1, 2, 6));
  EXPECT_EQ(array.getCapacity(), 10);
}

TEST(SimpleArray, LosesItsTailWithItsCapacity) {
  int ends = 0;
  TSimpleArray<P<CCounted>> array;
  for (int i = 0; i < 5; ++i) array.add(makeObject<CCounted>([&ends] { ++ends; }));
  array.setCapacity(3);
  EXPECT_EQ(array.getCount(), 3);
  EXPECT_EQ(array.getCapacity(), 3);
  EXPECT_EQ(ends, 2);
  array.setCapacity(50);
  EXPECT_EQ(array.getCapacity(), 50);
  EXPECT_EQ(array.getCount(), 3);
  array.setCapacity(0);
  EXPECT_EQ(ends, 5);
  EXPECT_EQ(array.getCapacity(), 0);
}

TEST(SimpleArray, LeavesAllCountsAsTheyWereWhenItGrows) {
  std::list<CCounted> objects(100);
  TSimpleArray<P<CCounted>> array;
  for (CCounted& object : objects) array.add(&object);
  EXPECT_EQ(array.getCapacity(), 100);
  for (const CCounted& object : objects) EXPECT_EQ(object.referenceCount(), 2);
  array.setCapacity(1000);
  for (const CCounted& object : objects) EXPECT_EQ(object.referenceCount(), 2);
}

TEST(SimpleArray, KeepsStrongAndFrailPointersApartWhenItGrows) {
  CCounted object;
  TSimpleArray<PFrail<CCounted>> array(1);
  for (int i = 0; i < 10; ++i) array.add({&object, i % 2 == 0});
  EXPECT_EQ(object.referenceCount(), 6);
  for (int i = 0; i < 10; ++i) EXPECT_EQ(array[i].isStrong(), i % 2 == 0);
}

TEST(SimpleArray, KeepsRemovedElementsUntilTheirPlaceIsTaken) {
  int ends = 0;
  TSimpleArray<P<CCounted>> array;
  array.add(makeObject<CCounted>([&ends] { ++ends; }));
  array.removeAt(0);
  EXPECT_EQ(ends, 0);
  array.add(nullptr);
  EXPECT_EQ(ends, 1);
}

TEST(CleaningSimpleArray, LetsGoOfWhatIsRemoved) {
  int ends = 0;
  TCleaningSimpleArray<P<CCounted>> array;
  for (int i = 0; i < 5; ++i) array.add(makeObject<CCounted>([&ends] { ++ends; }));
  array.removeAt(1, 2);
  EXPECT_EQ(ends, 2);
  EXPECT_EQ(array.getCount(), 3);
  array.clear();
  EXPECT_EQ(ends, 5);
  EXPECT_EQ(array.getCapacity(), 10);
}

TEST(CleaningSimpleArray, HasNothingToCleanWhenNothingIsRemoved) {
  TCleaningSimpleArray<int> array;
  EXPECT_EQ(array.clean(5), 0);
  array.add(1);
  array.removeAt(0);
  EXPECT_EQ(array.clean(5), 0);
}

TEST(CleaningSimpleArray, MayBeUsedByTheObjectsThatItLetsGo) {
  TCleaningSimpleArray<P<CCounted>> array(1);
  std::list<CCounted> others(40);
  int ends = 0;
  for (int i = 0; i < 20; ++i) {
    array.add(makeObject<CCounted>([&, i] {
      ++ends;
      auto other = std::next(others.begin(), 2 * i);
      if (i % 3 == 0) array.add(&*other++);
      if (i % 3 == 1) array.insert(0, &*other);
      if (i % 3 == 2 && !array.isEmpty()) array.removeAt(array.getCount() / 2);
      if (i % 5 == 0) array.setCapacity(array.getCount() + 2);
    }));
  }
  array.removeAt(3, 10);
  array.clear();
  EXPECT_EQ(ends, 20);
  int held = 0;
  for (const CCounted& other : others) held += other.referenceCount() - 1;
  EXPECT_EQ(held, array.getCount());
  array.clear();
  for (const CCounted& other : others) EXPECT_EQ(other.referenceCount(), 1);
}

TEST(CleaningSimpleArray, DoesWhatAVectorDoes) {
  std::mt19937 random(1);
  const auto below = [&random](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
  for (int round = 0; round < 50; ++round) {
    CNumbers array(1 + below(12));
    std::vector<int> peer;
    for (int step = 0; step < 400; ++step) {
      const int count = array.getCount();
      switch (below(8)) {
        case 0:
        case 1:
        case 2:
          array.add(step);
          peer.push_back(step);
          break;
        case 3:
        case 4: {
          const int index = below(count + 1);
          array.insert(index, step);
          peer.insert(peer.begin() + index, step);
          break;
        }
        case 5:
        case 6: {
          const int index = below(count + 1);
          const int number = below(std::min(3, count - index) + 1);
          array.removeAt(index, number);
          peer.erase(peer.begin() + index, peer.begin() + index + number);
          break;
        }
        default: {
          const int capacity = below(2 * count + 20);
          array.setCapacity(capacity);
          if (capacity < count) peer.resize(static_cast<std::size_t>(capacity));
          ASSERT_EQ(array.getCapacity(), capacity);
        }
      }
      ASSERT_EQ(elementsOf(array), peer);
    }
  }
}

}  // namespace
}  // namespace orlo
