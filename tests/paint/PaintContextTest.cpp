#include "graphics/paint/PaintContext.h"
#include "tests/paint/Canvas.h"

#include <gtest/gtest.h>

namespace graphics::test {

TEST(PaintContext, StartsForTheFinalOutputAtTheResolutionOfItsTarget) {
  CCanvas canvas;
  const CPaintContext context(&canvas.dc, 7);
  EXPECT_EQ(context.dc, &canvas.dc);
  EXPECT_EQ(context.cacheKey, 7);
  EXPECT_EQ(context.matrix, CMatrix());
  EXPECT_EQ(context.viewMode, 0);
  EXPECT_EQ(context.outputMode, 0);
  EXPECT_EQ(context.outputScale, 1.0);
  EXPECT_EQ(context.nextRepaint, 0);
  EXPECT_EQ(context.effectContext, nullptr);
  EXPECT_FALSE(context.highQuality);
}

TEST(PaintContext, ACloneDiffersInTargetAndCacheKeyAlone) {
  CCanvas canvas, other;
  CPaintContext context(&canvas.dc, 7);
  context.matrix = CMatrix::Scale(2, 3);
  context.rect = {1, 2, 3, 4};
  context.clip = {5, 6, 7, 8};
  context.extra = {9, 10, 11, 12};
  context.highQuality = true;
  context.viewMode = 2;
  context.outputMode = 1;
  context.outputScale = 4.5;
  context.nextRepaint = 40;
  const CPaintContext clone(context, &other.dc, 0);
  EXPECT_EQ(clone.dc, &other.dc);
  EXPECT_EQ(clone.cacheKey, 0);
  EXPECT_EQ(clone.matrix, context.matrix);
  EXPECT_EQ(clone.rect, context.rect);
  EXPECT_EQ(clone.clip, context.clip);
  EXPECT_EQ(clone.extra, context.extra);
  EXPECT_TRUE(clone.highQuality);
  EXPECT_EQ(clone.viewMode, 2);
  EXPECT_EQ(clone.outputMode, 1);
  EXPECT_EQ(clone.outputScale, 4.5);
  EXPECT_EQ(clone.nextRepaint, 40);
}

TEST(PaintContext, ThePixelsPerPageUnitFollowTheOutputMode) {
  CCanvas canvas;
  CPaintContext context(&canvas.dc, 0);
  EXPECT_EQ(context.GetDeviceScale(), (CDoubleSize{96 / 25.4, 96 / 25.4}));
  context.outputMode = 1;
  context.outputScale = 2.5;
  EXPECT_EQ(context.GetDeviceScale(), (CDoubleSize{2.5, 2.5}));
  context.outputMode = 2;
  EXPECT_EQ(context.GetDeviceScale(), (CDoubleSize{1.0, 1.0}));
}

}  // namespace graphics::test
