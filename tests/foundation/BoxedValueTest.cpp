#include "foundation/BoxedValue.h"
#include "foundation/Cast.h"
#include "foundation/String.h"
#include "tests/foundation/TextOf.h"

#include <gtest/gtest.h>

#include <limits>

namespace orlo {
namespace {

TEST(BoxedValue, HoldsWhatWasPutIn) {
  EXPECT_EQ(makeObject<CInt>(std::numeric_limits<std::int32_t>::min())->getValue(), -2147483647 - 1);
  EXPECT_EQ(makeObject<CInt64>(std::numeric_limits<std::int64_t>::max())->getValue(), 9223372036854775807);
  EXPECT_EQ(makeObject<CFloat>(1.5F)->getValue(), 1.5F);
  EXPECT_EQ(makeObject<CDouble>(-0.1)->getValue(), -0.1);
  EXPECT_TRUE(makeObject<CBool>(true)->getValue());
  EXPECT_FALSE(makeObject<CBool>(false)->getValue());
}

TEST(BoxedValue, IsOfOneTypeOnly) {
  const P<IBase> object = makeObject<CInt>(7);
  EXPECT_EQ(cast<IInt>(object.get())->getValue(), 7);
  EXPECT_FALSE(tryCast<IInt64>(object.get(), true));
  EXPECT_FALSE(tryCast<IFloat>(object.get(), true));
  EXPECT_FALSE(tryCast<IDouble>(object.get(), true));
  EXPECT_FALSE(tryCast<IBool>(object.get(), true));
}

TEST(BoxedValue, IsNamedByItsClass) {
  EXPECT_EQ(textOf(makeObject<CBool>(true)->getDescription()), "orlo::CBool object");
}

}  // namespace
}  // namespace orlo
