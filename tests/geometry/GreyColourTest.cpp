#include "graphics/geometry/GreyColour.h"

#include <gtest/gtest.h>

namespace graphics {
namespace {

TEST(GreyColour, WeighsTheChannelsAndTruncates) {
  EXPECT_EQ(GreyColour(wxColour(0, 0, 255), 0.299, 0.587, 0.114), wxColour(29, 29, 29));
}

TEST(GreyColour, KeepsAlpha) {
  EXPECT_EQ(GreyColour(wxColour(10, 20, 30, 40), 0, 1, 0), wxColour(20, 20, 20, 40));
}

TEST(GreyColour, KeepsTheLowByteOfALargeSum) {
  EXPECT_EQ(GreyColour(wxColour(255, 0, 0), 255.0, 0.587, 0.114), wxColour(1, 1, 1));
}

}  // namespace
}  // namespace graphics
