#pragma once

#include "host/Picture.h"

#include <string>

namespace test {

struct Comparison {
  // Of any channel of any pixel.
  int largestDifference = 0;
  // Pixels with a channel that differs by more than the tolerance.
  int differingPixels = 0;
  // The differences of each pixel, made eight times as strong, on black.
  host::Picture difference;
};

// Both of the same size.
Comparison compare(const host::PictureView& a, const host::PictureView& b, int tolerance);

host::Picture copyOf(const host::PictureView& picture);
host::Picture readPng(const std::string& path);
void writePng(const std::string& path, const host::PictureView& picture);

}  // namespace test
