#include "foundation/Array.h"
#include "foundation/Comparable.h"
#include "foundation/Error.h"
#include "foundation/String.h"
#include "tests/foundation/Counted.h"
#include "tests/foundation/TextOf.h"

#include <gmock/gmock.h>

#include <list>

namespace orlo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::vector<const IBase*> objectsOf(const CArray& array) {
  std::vector<const IBase*> objects;
  for (const P<IConstEnum> walk = array.getConstEnum(); walk->hasNext();) objects.push_back(walk->nextConst().get());
  return objects;
}

TEST(Array, IsEmptyAtFirst) {
  const CArray array;
  EXPECT_EQ(array.getCount(), 0);
  EXPECT_TRUE(array.isEmpty());
  EXPECT_FALSE(array.getConstEnum()->hasNext());
}

TEST(Array, KeepsItsObjects) {
  CCounted object;
  {
    CArray array;
    array.add(&object);
    array.add(&object);
    EXPECT_EQ(object.referenceCount(), 3);
    EXPECT_EQ(array.getCount(), 2);
    EXPECT_FALSE(array.isEmpty());
  }
  EXPECT_EQ(object.referenceCount(), 1);
}

TEST(Array, TellsObjectsByIdentity) {
  const P<IBase> first = fromUTF8("text").getObject();
  const P<IBase> equal = fromUTF8("text").getObject();
  CArray array;
  array.add(nullptr);
  array.add(first);
  array.add(first);
  EXPECT_EQ(array.indexOf(first), 1);
  EXPECT_EQ(array.indexOf(equal), -1);
  EXPECT_EQ(array.indexOf(nullptr), 0);
  EXPECT_TRUE(array.contains(first));
  EXPECT_FALSE(array.contains(equal));
}

TEST(Array, TakesObjectsByIndex) {
  CCounted a, b, c, d;
  CArray array;
  array.insert(0, &b);
  array.insert(0, &a);
  array.insert(2, &d);
  array.insert(2, &c);
  EXPECT_THAT(objectsOf(array), ElementsAre(&a, &b, &c, &d));
  array.swap(0, 3);
  array.set(1, &a);
  array.removeAt(2);
  EXPECT_THAT(objectsOf(array), ElementsAre(&d, &a, &a));
  EXPECT_EQ(array.get(0).get(), &d);
  EXPECT_EQ(array.getConst(2).get(), &a);
  EXPECT_EQ(b.referenceCount(), 1);
  EXPECT_EQ(c.referenceCount(), 1);
}

TEST(Array, RemovesAnObjectOnce) {
  CCounted a, b;
  CArray array;
  for (CCounted* object : {&a, &b, &a}) array.add(object);
  EXPECT_TRUE(array.remove(&a));
  EXPECT_THAT(objectsOf(array), ElementsAre(&b, &a));
  EXPECT_TRUE(array.remove(&a));
  EXPECT_FALSE(array.remove(&a));
  array.removeAll();
  EXPECT_TRUE(array.isEmpty());
  EXPECT_EQ(b.referenceCount(), 1);
}

TEST(Array, RefusesIndicesThatAreNotThere) {
  CCounted object;
  CArray array;
  array.add(&object);
  EXPECT_THROW(array.get(1), CInvalidArgError);
  EXPECT_THROW(array.get(-1), CInvalidArgError);
  EXPECT_THROW(array.getConst(1), CInvalidArgError);
  EXPECT_THROW(array.insert(2, &object), CInvalidArgError);
  EXPECT_THROW(array.insert(-1, &object), CInvalidArgError);
  EXPECT_THROW(array.set(1, &object), CInvalidArgError);
  EXPECT_THROW(array.removeAt(1), CInvalidArgError);
  EXPECT_THROW(array.swap(0, 1), CInvalidArgError);
  EXPECT_THROW(array.swap(-1, 0), CInvalidArgError);
  EXPECT_EQ(array.getCount(), 1);
  EXPECT_EQ(object.referenceCount(), 2);
  try {
    array.get(7);
  } catch (const CInvalidArgError& error) {
    EXPECT_THAT(messageOf(error), HasSubstr("The index is not in the array."));
  }
}

TEST(Array, GrowsInStepsOfTen) {
  CArray array;
  for (int i = 0; i < 21; ++i) array.add(nullptr);
  EXPECT_EQ(array.getCapacity(), 30);
}

TEST(Array, LeavesTheCountsOfItsObjectsWhenItGrows) {
  std::list<CCounted> objects(1000);
  CArray array;
  for (CCounted& object : objects) array.add(&object);
  for (const CCounted& object : objects) ASSERT_EQ(object.referenceCount(), 2);
}

TEST(Array, IsWalkedByAnEnumeratorThatKeepsIt) {
  CCounted a, b;
  P<CArray> array = makeObject<CArray>();
  array->add(&a);
  array->add(&b);
  const P<IEnum> walk = array->getEnum();
  array = nullptr;
  EXPECT_EQ(walk->getCount(), 2);
  EXPECT_EQ(walk->next().get(), &a);
  EXPECT_EQ(walk->nextConst().get(), &b);
  EXPECT_FALSE(walk->hasNext());
  EXPECT_THROW(walk->next(), CEndOfEnumError);
  EXPECT_THROW(walk->nextConst(), CEndOfEnumError);
  EXPECT_EQ(walk->getCount(), 2);
  walk->reset();
  EXPECT_EQ(walk->next().get(), &a);
}

TEST(Array, MayShrinkUnderAWalk) {
  CArray array;
  for (int i = 0; i < 3; ++i) array.add(makeObject<CCounted>());
  const P<IEnum> walk = array.getEnum();
  walk->next();
  walk->next();
  array.removeAt(0);
  array.removeAt(0);
  EXPECT_FALSE(walk->hasNext());
  EXPECT_THROW(walk->next(), CEndOfEnumError);
}

TEST(Array, MayBeUsedByAnObjectThatItReplaces) {
  CCounted other;
  CArray array;
  array.add(makeObject<CCounted>([&array] {
    for (int i = 0; i < 100; ++i) array.add(nullptr);
  }));
  array.set(0, &other);
  EXPECT_EQ(array.getCount(), 101);
  EXPECT_EQ(array.get(0).get(), &other);
}

/// Ordered by a number, and told apart by a letter.
class CNumbered : public CObject, public IComparable {
public:
  CNumbered(int number, char letter) : number_(number), letter_(letter) {}
  int compare(PC<IBase> other) const override {
    const int otherNumber = dynamic_cast<const CNumbered&>(*other).number_;
    return number_ < otherNumber ? -1 : number_ > otherNumber;
  }
  char letter() const { return letter_; }

private:
  int number_;
  char letter_;
};

TEST(Array, SortsItsObjectsAndLeavesEqualOnesAsTheyStand) {
  CArray array;
  for (const auto& [number, letter] : {std::pair{3, 'e'}, {1, 'a'}, {2, 'c'}, {1, 'b'}, {2, 'd'}})
    array.add(makeObject<CNumbered>(number, letter));
  array.add(nullptr);
  array.sort();
  std::string letters;
  EXPECT_FALSE(array.get(0));
  for (int i = 1; i < array.getCount(); ++i) letters += dynamic_cast<CNumbered&>(*array.get(i)).letter();
  EXPECT_EQ(letters, "abcde");
}

TEST(Array, MovesNothingIfItCannotSort) {
  const P<CNumbered> two = makeObject<CNumbered>(2, 'b');
  const P<CNumbered> one = makeObject<CNumbered>(1, 'a');
  CCounted other;
  CArray array;
  array.add(two);
  array.add(one);
  array.add(&other);
  EXPECT_THROW(array.sort(), CCastError);
  EXPECT_THAT(objectsOf(array), ElementsAre(two.get(), one.get(), &other));
}

TEST(ConstArray, HoldsWhatIsOnlyRead) {
  CCounted object;
  const PC<CCounted> view(&object);
  CConstArray array;
  array.add(view);
  EXPECT_EQ(array.getCount(), 1);
  EXPECT_EQ(array.indexOf(view), 0);
  EXPECT_EQ(array.getConst(0).get(), &object);
  EXPECT_THROW(array.getConst(1), CInvalidArgError);
  EXPECT_EQ(object.referenceCount(), 3);
}

TEST(ConstArray, IsWalked) {
  CCounted a, b;
  P<CConstArray> array = makeObject<CConstArray>();
  array->add(PC<CCounted>(&a));
  array->add(PC<CCounted>(&b));
  const P<IConstEnum> walk = array->getConstEnum();
  array = nullptr;
  EXPECT_EQ(walk->getCount(), 2);
  EXPECT_EQ(walk->nextConst().get(), &a);
  EXPECT_EQ(walk->nextConst().get(), &b);
  EXPECT_THROW(walk->nextConst(), CEndOfEnumError);
  walk->reset();
  EXPECT_TRUE(walk->hasNext());
}

}  // namespace
}  // namespace orlo
