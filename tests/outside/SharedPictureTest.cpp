#include "tests/outside/Instance.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

namespace {

using test::Instance;
using test::Module;

constexpr int pictureWidth = 4000;
constexpr int pictureHeight = 3000;
// Four bytes a pixel.
constexpr long pictureKilobytes = 4L * pictureWidth * pictureHeight / 1024;

long residentKilobytes() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    if (word != "VmRSS:") continue;
    long kilobytes = 0;
    status >> kilobytes;
    return kilobytes;
  }
  return -1;
}

// One bit a pixel, all red.
std::string redBmp() {
  const auto number = [](long value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> 8 * i & 0xFF);
    return text;
  };
  const int stride = (pictureWidth + 31) / 32 * 4;
  const std::string pixels(static_cast<std::size_t>(stride) * pictureHeight, '\0');
  return "BM" + number(62 + static_cast<long>(pixels.size()), 4) + number(0, 4) + number(62, 4) + number(40, 4) +
         number(pictureWidth, 4) + number(pictureHeight, 4) + number(1, 2) + number(1, 2) + number(0, 24) +
         std::string("\0\0\xFF\0\0\0\0\0", 8) + pixels;
}

std::string image(const std::string& picture) {
  return "<image unique=\"7\" type=\"image\"><center x=\"80\" y=\"45\"/><size width=\"60\" height=\"40\"/>" + picture +
         "</image>";
}

std::string pageOf(int elements) {
  std::string all = image("<attachment-bitmap extension=\"bmp\">" + test::toBase64(redBmp()) + "</attachment-bitmap>");
  for (int i = 1; i < elements; ++i) all += image("");
  return test::page(all);
}

long residentOf(const Module& module, int elements) {
  const std::string page = pageOf(elements);
  const long before = residentKilobytes();
  Instance instance(module, page);
  instance.open();
  EXPECT_EQ(test::pixelAt(instance.frame(), 80, 45), (test::Pixels{0, 0, 255, 255}));
  return residentKilobytes() - before;
}

// A picture that a page uses in many elements is in memory once.
TEST(SharedPicture, IsHeldOnceHoweverManyElementsShareIt) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  GTEST_SKIP() << "sanitizers keep memory that was given back";
#endif
  const Module module;
  residentOf(module, 1);
  const long one = residentOf(module, 1);
  const long thousand = residentOf(module, 1000);
  RecordProperty("oneElementKilobytes", static_cast<int>(one));
  RecordProperty("thousandElementsKilobytes", static_cast<int>(thousand));
  EXPECT_GE(one, pictureKilobytes / 2);
  EXPECT_LT(thousand, pictureKilobytes * 3 / 2);
}

}  // namespace
