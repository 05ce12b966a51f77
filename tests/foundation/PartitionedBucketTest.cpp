#include "foundation/Error.h"
#include "foundation/PartitionedBucket.h"
#include "tests/foundation/Counted.h"
#include "tests/foundation/TextOf.h"

#include <gmock/gmock.h>

#include <set>

namespace orlo {
namespace {

using testing::UnorderedElementsAre;

std::multiset<const IBase*> objectsOf(const IConstBucket& bucket) {
  std::multiset<const IBase*> objects;
  for (const P<IConstEnum> walk = bucket.getConstEnum(); walk->hasNext();) objects.insert(walk->nextConst().get());
  return objects;
}

TEST(PartitionedBucket, MakesItsPartsAtFirstUse) {
  CCounted a, b, c;
  CPartitionedBucket bucket;
  EXPECT_FALSE(bucket.getPartition("One"));
  bucket.add("One", &a);
  bucket.add("ONE", &b);
  bucket.add("two", &c);
  const P<IArray> one = bucket.getPartition("one");
  ASSERT_TRUE(one);
  EXPECT_EQ(one->getCount(), 2);
  EXPECT_EQ(one->get(0).get(), &a);
  EXPECT_EQ(one->get(1).get(), &b);
  std::vector<std::string> names;
  for (const P<IConstEnum> walk = bucket.getPartitionNames(); walk->hasNext();)
    names.push_back(textOf(asString(walk->nextConst())));
  EXPECT_THAT(names, UnorderedElementsAre("one", "two"));
}

TEST(PartitionedBucket, IsABucketOfAllItsParts) {
  CCounted a, b, c;
  CPartitionedBucket bucket;
  EXPECT_TRUE(bucket.isEmpty());
  EXPECT_FALSE(bucket.getEnum()->hasNext());
  bucket.add("one", &a);
  bucket.add("two", &a);
  bucket.add("two", &b);
  bucket.add(&c);
  EXPECT_FALSE(bucket.isEmpty());
  EXPECT_EQ(bucket.getCount(), 4);
  EXPECT_TRUE(bucket.contains(&b));
  EXPECT_THAT(objectsOf(bucket), UnorderedElementsAre(&a, &a, &b, &c));
  EXPECT_EQ(bucket.getPartition("")->get(0).get(), &c);

  P<IEnum> walk = bucket.getEnum();
  EXPECT_EQ(walk->getCount(), 4);
  for (int i = 0; i < 4; ++i) EXPECT_TRUE(walk->next());
  EXPECT_THROW(walk->next(), CEndOfEnumError);
  walk = nullptr;

  EXPECT_TRUE(bucket.remove(&a));
  EXPECT_TRUE(bucket.contains(&a));
  EXPECT_TRUE(bucket.remove(&a));
  EXPECT_FALSE(bucket.remove(&a));
  EXPECT_FALSE(bucket.contains(&a));
  EXPECT_EQ(bucket.getPartition("one")->getCount(), 0);
  bucket.removeAll();
  EXPECT_TRUE(bucket.isEmpty());
  EXPECT_FALSE(bucket.getPartition("two"));
  EXPECT_EQ(b.referenceCount(), 1);
}

TEST(PartitionedBucket, WalksItsPartsInTheOrderOfTheirNames) {
  std::vector<CCounted> objects(12);
  CPartitionedBucket bucket;
  for (std::size_t i = 0; i < objects.size(); ++i) bucket.add(fromUTF8("part " + std::to_string(i)), &objects[i]);
  const P<IConstEnum> all = bucket.getConstEnum();
  for (const P<IConstEnum> names = bucket.getPartitionNames(); names->hasNext();)
    EXPECT_EQ(all->nextConst().get(), bucket.getPartition(asString(names->nextConst()))->get(0).get());
  EXPECT_FALSE(all->hasNext());
}

TEST(PartitionedBucket, RemovesAPartWithAllThatIsInIt) {
  CCounted a, b;
  CPartitionedBucket bucket;
  bucket.add("one", &a);
  bucket.add("two", &b);
  bucket.removePartition("ONE");
  bucket.removePartition("three");
  EXPECT_FALSE(bucket.getPartition("one"));
  EXPECT_EQ(a.referenceCount(), 1);
  EXPECT_EQ(bucket.getCount(), 1);
}

}  // namespace
}  // namespace orlo
