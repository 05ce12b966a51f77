#include "tests/golden/Comparison.h"

#include "host/ClipSource.h"
#include "host/PngSink.h"

#include <algorithm>
#include <cstdlib>

namespace test {

Comparison compare(const host::PictureView& a, const host::PictureView& b, int tolerance) {
  Comparison result;
  result.difference = host::Picture(a.size);
  for (int y = 0; y < a.size.height; ++y) {
    const std::uint8_t* rowA = a.row(y);
    const std::uint8_t* rowB = b.row(y);
    std::uint8_t* target = result.difference.row(y);
    for (int x = 0; x < a.size.width; ++x) {
      int largest = 0;
      for (int channel = 0; channel < 4; ++channel) {
        const int difference = std::abs(rowA[x * 4 + channel] - rowB[x * 4 + channel]);
        largest = std::max(largest, difference);
        target[x * 4 + channel] = static_cast<std::uint8_t>(std::min(difference * 8, 255));
      }
      target[x * 4 + 3] = 255;
      result.largestDifference = std::max(result.largestDifference, largest);
      if (largest > tolerance) ++result.differingPixels;
    }
  }
  return result;
}

host::Picture copyOf(const host::PictureView& picture) {
  host::Picture copy(picture.size);
  for (int y = 0; y < picture.size.height; ++y) std::copy_n(picture.row(y), copy.stride(), copy.row(y));
  return copy;
}

host::Picture readPng(const std::string& path) {
  host::ClipSource source(path);
  source.start(*source.size(), {});
  return copyOf(*source.freshPicture());
}

void writePng(const std::string& path, const host::PictureView& picture) {
  host::PngSink sink(path);
  sink.write(picture);
  sink.finish();
}

}  // namespace test
