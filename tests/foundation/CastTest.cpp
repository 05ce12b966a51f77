#include "foundation/Cast.h"
#include "foundation/Error.h"
#include "tests/foundation/Counted.h"

#include <gtest/gtest.h>

namespace orlo {
namespace {

class IOtherFace : public virtual IBase {};
class IThirdFace : public virtual IBase {};
class COther : public CObject, public IOtherFace {};

/// Answers the hook of the casts as it is told.
class CGuided : public CCountedFace {
public:
  bool queryCast(const std::type_info& target, IBase** outerOut, CastLink** aggregatesOut) override {
    askedFor = &target;
    outputsWereNull = !*outerOut && !*aggregatesOut;
    *outerOut = outer;
    *aggregatesOut = aggregates;
    return allowed;
  }

  bool allowed = true;
  IBase* outer = nullptr;
  CastLink* aggregates = nullptr;

  const std::type_info* askedFor = nullptr;
  bool outputsWereNull = false;
};

template <class T>
T* tryOn(IBase& object, bool followOuter = true) {
  return tryCast<T>(&object, followOuter);
}

TEST(Cast, GivesTheObjectAsWhatItIs) {
  CCountedFace object;
  IBase* base = &object;
  EXPECT_EQ(tryCast<ICountedFace>(base), static_cast<ICountedFace*>(&object));
  EXPECT_EQ(cast<CCountedFace>(base), &object);
  EXPECT_EQ(cast<CCountedFace>(P<IBase>(base)), &object);
}

TEST(Cast, GivesNullForNull) {
  IBase* none = nullptr;
  EXPECT_EQ(cast<ICountedFace>(none), nullptr);
  EXPECT_EQ(tryCast<ICountedFace>(none), nullptr);
  EXPECT_EQ(cast<ICountedFace>(P<IBase>()), nullptr);
}

TEST(Cast, ToAnotherClassThrowsAndItsGentleFormGivesNull) {
  COther object;
  EXPECT_EQ(tryOn<ICountedFace>(object), nullptr);
  EXPECT_THROW(cast<ICountedFace>(static_cast<IBase*>(&object)), CCastError);
}

TEST(Cast, IsDeniedByAnObjectThatSaysSo) {
  CGuided object;
  object.allowed = false;
  EXPECT_EQ(tryOn<ICountedFace>(object), nullptr);
  EXPECT_TRUE(object.outputsWereNull);
  ASSERT_NE(object.askedFor, nullptr);
  EXPECT_EQ(*object.askedFor, typeid(ICountedFace));
}

TEST(Cast, GoesToTheOwningObjectUnlessToldNotTo) {
  CCountedFace owner;
  CGuided object;
  object.outer = &owner;
  EXPECT_EQ(tryOn<ICountedFace>(object, true), static_cast<ICountedFace*>(&owner));
  EXPECT_EQ(tryOn<ICountedFace>(object, false), static_cast<ICountedFace*>(&object));
}

TEST(Cast, FailsIfTheOwningObjectIsNoneOfThatClass) {
  COther owner;
  CGuided object;
  object.outer = &owner;
  EXPECT_EQ(tryOn<ICountedFace>(object), nullptr);
}

TEST(Cast, TriesTheAggregatesInTheirOrderAfterTheObject) {
  CCountedFace unfit;
  COther first;
  COther second;
  CastLink last{&second, nullptr};
  CastLink middle{&first, &last};
  CastLink head{&unfit, &middle};
  CGuided object;
  object.aggregates = &head;
  EXPECT_EQ(tryOn<IOtherFace>(object), static_cast<IOtherFace*>(&first));
  EXPECT_EQ(tryOn<ICountedFace>(object), static_cast<ICountedFace*>(&object));
  EXPECT_EQ(tryOn<IThirdFace>(object), nullptr);
}

TEST(Cast, DoesNotFollowTheOwnerOfAnAggregate) {
  COther owner;
  CGuided aggregate;
  aggregate.outer = &owner;
  CastLink head{&aggregate, nullptr};
  CGuided object;
  object.aggregates = &head;
  EXPECT_EQ(tryOn<IOtherFace>(object), nullptr);
}

TEST(Cast, IsNeitherDeniedNorRedirectedByAPlainObject) {
  COther object;
  IBase* outer = nullptr;
  CastLink* aggregates = nullptr;
  EXPECT_TRUE(object.queryCast(typeid(int), &outer, &aggregates));
  EXPECT_EQ(outer, nullptr);
  EXPECT_EQ(aggregates, nullptr);
}

}  // namespace
}  // namespace orlo
