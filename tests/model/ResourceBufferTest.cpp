#include "graphics/model/ResourceBuffer.h"

#include <gtest/gtest.h>

namespace graphics {
namespace {

struct CCounted {
  explicit CCounted(int& count) : alive(count) { ++alive; }
  ~CCounted() { --alive; }
  int& alive;
};

TEST(ResourceBuffer, KeepsAnObjectForEachKey) {
  int alive = 0;
  TResourceBuffer<CCounted, bool> buffer;
  CCounted* const fast = buffer.Set(1, false, std::make_unique<CCounted>(alive));
  CCounted* const fine = buffer.Set(1, true, std::make_unique<CCounted>(alive));
  EXPECT_EQ(buffer.Get(1, false), fast);
  EXPECT_EQ(buffer.Get(1, true), fine);
  EXPECT_EQ(buffer.Get(2, true), nullptr);
  EXPECT_EQ(buffer.GetCount(), 2U);
  EXPECT_EQ(alive, 2);
}

TEST(ResourceBuffer, DeletesWhatItReplacesAndWhatItIsClearedOf) {
  int alive = 0;
  {
    TResourceBuffer<CCounted, bool> buffer;
    buffer.Set(1, false, std::make_unique<CCounted>(alive));
    buffer.Set(1, false, std::make_unique<CCounted>(alive));
    EXPECT_EQ(alive, 1);
    buffer.Clear();
    EXPECT_EQ(alive, 0);
    EXPECT_EQ(buffer.GetCount(), 0U);
    buffer.Set(1, false, std::make_unique<CCounted>(alive));
  }
  EXPECT_EQ(alive, 0);
}

}  // namespace
}  // namespace graphics
