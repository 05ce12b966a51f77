#include "tests/golden/Golden.h"

#include "tests/golden/Comparison.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace test {

namespace fs = std::filesystem;
using host::Picture;
using host::Size;

namespace {

// What other processors round differently stays below; a shifted edge or letter does not.
constexpr int tolerance = 4;

}  // namespace

Picture goldenBackground(Size size) {
  Picture picture(size);
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      const int square = (x / 20 + y / 20) % 2 * 24;
      std::uint8_t* pixel = picture.row(y) + x * 4;
      pixel[0] = static_cast<std::uint8_t>(225 - square);
      pixel[1] = static_cast<std::uint8_t>(170 - square + 60 * x / size.width);
      pixel[2] = static_cast<std::uint8_t>(150 - square + 70 * y / size.height);
      pixel[3] = 255;
    }
  }
  return picture;
}

std::vector<std::string> pagesOf(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().stem().string());
  std::sort(names.begin(), names.end());
  return names;
}

std::string testNameOf(std::string name) {
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

void expectGolden(const std::string& name, const host::PictureView& output) {
  const std::string reference = GOLDEN_REFERENCES "/" + name + ".png";
  if (std::getenv("MFILTER_RENEW_GOLDEN")) {
    fs::create_directories(fs::path(reference).parent_path());
    writePng(reference, output);
    GTEST_SKIP() << "written anew: " << reference;
  }

  ASSERT_TRUE(fs::exists(reference)) << "no reference; tests/golden/README.md tells how to make one";
  const Picture expected = readPng(reference);
  ASSERT_EQ(output.size, expected.size());
  const Comparison result = compare(output, expected.view(), tolerance);
  if (result.differingPixels == 0) return;

  const std::string prefix = GOLDEN_DIFFERENCES "/" + name;
  fs::create_directories(fs::path(prefix).parent_path());
  writePng(prefix + ".output.png", output);
  writePng(prefix + ".reference.png", expected.view());
  writePng(prefix + ".difference.png", result.difference.view());
  ADD_FAILURE() << result.differingPixels << " pixels differ by more than " << tolerance
                << ", the largest difference is " << result.largestDifference << "; see " << prefix << ".*.png";
}

}  // namespace test
