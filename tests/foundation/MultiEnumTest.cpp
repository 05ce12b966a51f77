#include "foundation/Array.h"
#include "foundation/EmptyEnum.h"
#include "foundation/Error.h"
#include "foundation/MultiEnum.h"
#include "tests/foundation/Counted.h"
#include "tests/foundation/TextOf.h"

#include <gmock/gmock.h>

namespace orlo {
namespace {

using testing::HasSubstr;

TEST(EmptyEnum, EndsAtOnce) {
  CEmptyEnum walk;
  EXPECT_FALSE(walk.hasNext());
  EXPECT_EQ(walk.getCount(), 0);
  EXPECT_THROW(walk.next(), CEndOfEnumError);
  EXPECT_THROW(walk.nextConst(), CEndOfEnumError);
  walk.reset();
  EXPECT_FALSE(walk.hasNext());
}

TEST(EmptyEnum, SaysThatItsEndIsReached) {
  CEmptyEnum walk;
  try {
    walk.next();
    FAIL();
  } catch (const CEndOfEnumError& error) {
    EXPECT_THAT(messageOf(error), HasSubstr("end of enumeration already reached"));
  }
}

TEST(MultiEnum, PassesOverExhaustedSubEnumerators) {
  CCounted a, b, c;
  CArray first;
  CArray second;
  CArray used;
  first.add(&a);
  second.add(&b);
  second.add(&c);
  used.add(&c);
  const P<IEnum> usedWalk = used.getEnum();
  usedWalk->next();

  CMultiEnum walk;
  walk.add(makeObject<CEmptyEnum>());
  walk.add(first.getEnum());
  walk.add(makeObject<CEmptyEnum>());
  walk.add(usedWalk);
  walk.add(second.getEnum());
  walk.add(makeObject<CEmptyEnum>());
  EXPECT_EQ(walk.getCount(), 4);
  EXPECT_EQ(walk.next().get(), &a);
  EXPECT_EQ(walk.nextConst().get(), &b);
  EXPECT_TRUE(walk.hasNext());
  EXPECT_EQ(walk.next().get(), &c);
  EXPECT_FALSE(walk.hasNext());
  EXPECT_THROW(walk.next(), CEndOfEnumError);
  EXPECT_THROW(walk.nextConst(), CEndOfEnumError);

  walk.reset();
  int count = 0;
  for (; walk.hasNext(); walk.next()) ++count;
  EXPECT_EQ(count, 4);
}

TEST(MultiEnum, EndsAtOnceWithoutSubEnumerators) {
  CMultiEnum walk;
  EXPECT_EQ(walk.getCount(), 0);
  EXPECT_FALSE(walk.hasNext());
  EXPECT_THROW(walk.next(), CEndOfEnumError);
}

TEST(MultiEnum, RefusesNull) {
  CMultiEnum walk;
  EXPECT_THROW(walk.add(nullptr), CInvalidArgError);
}

template <class Walk>
std::string lockMessage(Walk& walk) {
  try {
    walk.add(makeObject<CEmptyEnum>());
  } catch (const CInvalidObjectStateError& error) {
    return messageOf(error);
  }
  return "not locked";
}

TEST(MultiEnum, IsLockedByEachEnumeratingMethod) {
  const std::vector<void (*)(CMultiEnum&)> methods = {
      [](CMultiEnum& walk) { walk.hasNext(); }, [](CMultiEnum& walk) { walk.getCount(); },
      [](CMultiEnum& walk) { walk.reset(); }, [](CMultiEnum& walk) { EXPECT_THROW(walk.next(), CEndOfEnumError); },
      [](CMultiEnum& walk) { EXPECT_THROW(walk.nextConst(), CEndOfEnumError); }};
  for (const auto& method : methods) {
    CMultiEnum walk;
    EXPECT_EQ(lockMessage(walk), "not locked");
    method(walk);
    EXPECT_THAT(
        lockMessage(walk),
        HasSubstr("No more sub enums can be added to a multi enum after one of its IEnum methods has been called."));
  }
}

TEST(ConstMultiEnum, WalksAndIsLockedAsTheOther) {
  CCounted a;
  CConstArray array;
  array.add(PC<CCounted>(&a));
  CConstMultiEnum walk;
  walk.add(array.getConstEnum());
  walk.add(makeObject<CEmptyEnum>());
  EXPECT_EQ(lockMessage(walk), "not locked");
  EXPECT_EQ(walk.nextConst().get(), &a);
  EXPECT_FALSE(walk.hasNext());
  EXPECT_THAT(
      lockMessage(walk),
      HasSubstr("No more sub enums can be added to a multi enum after one of its IConstEnum methods has been called."));
}

}  // namespace
}  // namespace orlo
