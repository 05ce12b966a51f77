#include "foundation/FrailArray.h"
#include "tests/foundation/Counted.h"

#include <gtest/gtest.h>

#include <optional>

namespace orlo {
namespace {

TEST(FrailArray, CountsItsStrongElementsOnly) {
  CCountedFace strong;
  CCountedFace frail;
  std::optional<TFrailArray<ICountedFace>> array;
  array.emplace();
  array->addStrong(&strong);
  array->addFrail(&frail);
  EXPECT_EQ(strong.referenceCount(), 2);
  EXPECT_EQ(frail.referenceCount(), 1);
  array.reset();
  EXPECT_EQ(strong.referenceCount(), 1);
  EXPECT_EQ(frail.referenceCount(), 1);
}

TEST(FrailArray, HandsOutPointersThatKeepTheirObject) {
  CCountedFace frail;
  TFrailArray<ICountedFace> array;
  array.addFrail(&frail);
  {
    const PFrail<ICountedFace> element = array.get(0);
    EXPECT_EQ(element->face(), 7);
    EXPECT_TRUE(element.isStrong());
    EXPECT_EQ(frail.referenceCount(), 2);
  }
  EXPECT_EQ(frail.referenceCount(), 1);
}

TEST(FrailArray, TakesOutTheFirstPlaceOfAnObject) {
  CCountedFace first;
  CCountedFace second;
  TFrailArray<ICountedFace> array;
  array.addStrong(&first);
  array.addStrong(&second);
  array.addStrong(&first);
  EXPECT_TRUE(array.remove(&first));
  ASSERT_EQ(array.getCount(), 2);
  EXPECT_EQ(array.get(0).get(), &second);
  EXPECT_EQ(array.get(1).get(), &first);
  EXPECT_EQ(first.referenceCount(), 2);
  EXPECT_TRUE(array.remove(&first));
  EXPECT_FALSE(array.remove(&first));
  array.clear();
  EXPECT_EQ(array.getCount(), 0);
  EXPECT_EQ(second.referenceCount(), 1);
}

TEST(FrailArray, KnowsItsObjectsByIdentity) {
  CCountedFace inside;
  CCountedFace outside;
  TFrailArray<ICountedFace> array;
  array.addFrail(&inside);
  EXPECT_TRUE(array.contains(&inside));
  EXPECT_FALSE(array.contains(&outside));
  array.remove(&inside);
  EXPECT_FALSE(array.contains(&inside));
}

/// An object that lets nobody see what it is.
class CDenied : public CCountedFace {
public:
  bool queryCast(const std::type_info&, IBase**, CastLink**) override { return false; }
};

TEST(FrailArray, GivesNullForWhatCannotBeCast) {
  CDenied denied;
  TFrailArray<ICountedFace> array;
  array.addStrong(&denied);
  EXPECT_FALSE(array.get(0));
  EXPECT_EQ(denied.referenceCount(), 2);
}

TEST(FrailArray, GivesNullForPlacesThatAreNotThere) {
  const TFrailArray<ICountedFace> array;
  EXPECT_FALSE(array.get(0));
  EXPECT_FALSE(array.get(-1));
}

TEST(FrailArray, MayBeUsedByAnObjectThatItLetsGo) {
  TFrailArray<CCounted> array;
  CCounted other;
  {
    const P<CCounted> object = makeObject<CCounted>([&] {
      array.addStrong(&other);
      array.remove(&other);
      array.addFrail(&other);
    });
    array.addStrong(object.get());
  }
  array.clear();
  ASSERT_EQ(array.getCount(), 1);
  EXPECT_EQ(array.get(0).get(), &other);
  EXPECT_EQ(other.referenceCount(), 1);
}

}  // namespace
}  // namespace orlo
