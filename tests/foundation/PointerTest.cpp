#include "foundation/Pointer.h"
#include "tests/foundation/Counted.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace orlo {
namespace {

static_assert(std::is_convertible_v<P<CCountedFace>, P<ICountedFace>>);
static_assert(std::is_convertible_v<P<CCountedFace>, PC<ICountedFace>>);
static_assert(!std::is_constructible_v<P<CCountedFace>, PC<CCountedFace>>);
static_assert(!std::is_convertible_v<P<ICountedFace>, P<CCountedFace>>);
static_assert(sizeof(P<ICountedFace>) == sizeof(void*));

TEST(Pointer, IsNullAtFirst) {
  EXPECT_FALSE(P<CCounted>());
  EXPECT_FALSE(PC<CCounted>());
  EXPECT_TRUE(P<CCounted>() == nullptr);
}

TEST(Pointer, CountsWhatItIsMadeFrom) {
  CCounted object;
  const P<CCounted> first(&object);
  const P<CCounted> second(first);
  const PC<CCounted> third(second);
  EXPECT_EQ(object.referenceCount(), 4);
  EXPECT_TRUE(first == second);
  EXPECT_TRUE(first == third);
}

TEST(Pointer, LeavesTheCountWhenItIsAssignedToItself) {
  CCounted object;
  P<CCounted> pointer(&object);
  P<CCounted>& same = pointer;
  pointer = same;
  EXPECT_EQ(object.referenceCount(), 2);
  EXPECT_EQ(pointer.get(), &object);
  pointer = pointer.get();
  EXPECT_EQ(object.referenceCount(), 2);
  pointer = std::move(same);
  EXPECT_EQ(object.referenceCount(), 2);
  EXPECT_EQ(pointer.get(), &object);
}

TEST(Pointer, KeepsTheNewObjectBeforeItLetsTheOldOneGo) {
  CCounted inner;
  P<CCounted> held(&inner);
  P<CCounted> outer = makeObject<CCounted>([&held] { held = nullptr; });
  outer = held;
  EXPECT_EQ(outer.get(), &inner);
  EXPECT_FALSE(held);
  EXPECT_EQ(inner.referenceCount(), 2);
}

TEST(Pointer, AttachTakesAReferenceThatIsThere) {
  int destructions = 0;
  {
    P<CCounted> pointer;
    pointer.attach(new CCounted([&] { ++destructions; }));
    EXPECT_EQ(pointer->referenceCount(), 1);
    pointer.attach(nullptr);
    EXPECT_EQ(destructions, 1);
    pointer.attach(new CCounted([&] { ++destructions; }));
  }
  EXPECT_EQ(destructions, 2);
}

TEST(Pointer, MovesWithoutTouchingTheCount) {
  P<CCountedFace> source = makeObject<CCountedFace>();
  CCountedFace* object = source.get();
  P<ICountedFace> face = std::move(source);
  EXPECT_FALSE(source);
  EXPECT_EQ(object->referenceCount(), 1);
  PC<ICountedFace> view = std::move(face);
  EXPECT_FALSE(face);
  EXPECT_EQ(object->referenceCount(), 1);
  EXPECT_EQ(view->face(), 7);
}

TEST(Pointer, ToADerivedObjectBecomesOneToItsInterface) {
  CCountedFace object;
  P<CCountedFace> derived(&object);
  P<ICountedFace> face = derived;
  P<IBase> base = face;
  EXPECT_EQ(face.get(), static_cast<ICountedFace*>(&object));
  EXPECT_EQ(base.get(), static_cast<IBase*>(&object));
  EXPECT_EQ(object.referenceCount(), 4);
}

TEST(Pointer, StaysNullWhenItIsConverted) {
  P<CCountedFace> derived;
  P<ICountedFace> face = derived;
  PC<IBase> base = face;
  EXPECT_FALSE(face);
  EXPECT_FALSE(base);
}

TEST(Pointer, IsNullWhenThereIsNoMemoryForItsObject) {
  struct CHomeless : CCounted {
    static void* operator new(std::size_t, const std::nothrow_t&) noexcept { return nullptr; }
    static void operator delete(void* memory) { ::operator delete(memory); }
    static void operator delete(void*, const std::nothrow_t&) noexcept {}
  };
  EXPECT_FALSE(makeObject<CHomeless>());
}

TEST(FrailPointer, IsNullAndStrongAtFirst) {
  const PFrail<CCounted> pointer;
  EXPECT_FALSE(pointer);
  EXPECT_TRUE(pointer.isStrong());
}

TEST(FrailPointer, CountsOnlyIfItIsStrong) {
  CCounted object;
  {
    const PFrail<CCounted> strong(&object, true);
    EXPECT_EQ(object.referenceCount(), 2);
    const PFrail<CCounted> frail(&object, false);
    EXPECT_EQ(object.referenceCount(), 2);
  }
  EXPECT_EQ(object.referenceCount(), 1);
}

TEST(FrailPointer, CopiesItsFlagAlong) {
  CCounted object;
  const PFrail<CCounted> frail(&object, false);
  const PFrail<CCounted> frailCopy(frail);
  EXPECT_FALSE(frailCopy.isStrong());
  EXPECT_EQ(frailCopy.get(), &object);
  EXPECT_EQ(object.referenceCount(), 1);
  const PFrail<CCounted> strong(&object, true);
  const PFrail<CCounted> strongCopy(strong);
  EXPECT_TRUE(strongCopy.isStrong());
  EXPECT_EQ(object.referenceCount(), 3);
}

TEST(FrailPointer, CountsByTheFlagsOfBothSidesWhenItIsAssigned) {
  CCounted first;
  CCounted second;
  PFrail<CCounted> pointer(&first, true);
  pointer = PFrail<CCounted>(&second, false);
  EXPECT_FALSE(pointer.isStrong());
  EXPECT_EQ(first.referenceCount(), 1);
  EXPECT_EQ(second.referenceCount(), 1);
  pointer = PFrail<CCounted>(&first, true);
  EXPECT_TRUE(pointer.isStrong());
  EXPECT_EQ(first.referenceCount(), 2);
  EXPECT_EQ(second.referenceCount(), 1);
  const PFrail<CCounted>& same = pointer;
  pointer = same;
  EXPECT_EQ(first.referenceCount(), 2);
}

TEST(FrailPointer, IsNullOnceCleared) {
  CCounted object;
  PFrail<CCounted> strong(&object, true);
  strong.clear();
  EXPECT_FALSE(strong);
  EXPECT_EQ(object.referenceCount(), 1);
  PFrail<CCounted> frail(&object, false);
  frail.clear();
  EXPECT_FALSE(frail);
  EXPECT_FALSE(frail.isStrong());
  EXPECT_EQ(object.referenceCount(), 1);
}

}  // namespace
}  // namespace orlo
