#include "graphics/elements/GraphicImage.h"
#include "graphics/elements/ScaledCopy.h"
#include "graphics/paint/native/BitmapPixels.h"
#include "tests/elements/Page.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace graphics::test {

namespace {

/// A quarter of the budget.
std::unique_ptr<CScaledCopy> Quarter() {
  return std::make_unique<CScaledCopy>(MakeAlphaBitmap(4096, 4096));
}

}  // namespace

TEST(ScaledCopy, GivesItsRoomBack) {
  const CToolkitLock lock;
  const std::size_t before = CScaledCopy::BytesInUse();
  {
    const CScaledCopy copy(MakeAlphaBitmap(10, 20));
    EXPECT_EQ(CScaledCopy::BytesInUse(), before + 800);
  }
  EXPECT_EQ(CScaledCopy::BytesInUse(), before);
}

TEST(ScaledCopy, TakesTheRoomOfThoseThatWereUsedLeastRecently) {
  const CToolkitLock lock;
  const std::size_t before = CScaledCopy::BytesInUse();
  std::vector<std::unique_ptr<CScaledCopy>> copies;
  for (int i = 0; i < 4; ++i) copies.push_back(Quarter());
  for (const auto& copy : copies) EXPECT_TRUE(copy->IsOk());
  copies[0]->Touch();
  copies.push_back(Quarter());
  EXPECT_TRUE(copies[0]->IsOk());
  EXPECT_FALSE(copies[1]->IsOk());
  EXPECT_TRUE(copies[2]->IsOk());
  copies[1]->Touch();
  copies.push_back(Quarter());
  EXPECT_FALSE(copies[2]->IsOk());
  EXPECT_LE(CScaledCopy::BytesInUse(), kScaledCopyBudget);
  copies.clear();
  EXPECT_EQ(CScaledCopy::BytesInUse(), before);
}

TEST(ScaledCopy, IsMadeAnewForAnImageThatLostIt) {
  CPage page(1200, 1200);
  std::vector<orlo::P<CGraphicImage>> images;
  wxBitmap red = MakeAlphaBitmap(1, 1);
  SetPixelOf(red, 0, 0, kRed);
  for (int i = 0; i < 100; ++i) {
    images.push_back(orlo::makeObject<CGraphicImage>());
    images.back()->SetBitmap(red);
    Place(*images.back(), {0, 0, 1200, 1200});
    images.back()->Paint(page.context);
    ASSERT_LE(CScaledCopy::BytesInUse(), kScaledCopyBudget);
  }
  CPage again(1200, 1200);
  images.front()->Paint(again.context);
  EXPECT_EQ(again.At(1199, 1199), kRed);
}

}  // namespace graphics::test
