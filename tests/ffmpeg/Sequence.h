#pragma once

#include "tests/ffmpeg/Movies.h"
#include "tests/ffmpeg/Plugin.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

/// The numbers that are seen after each of so many further frames of the host.
inline std::vector<int> NumbersOf(vantra::IAnimationExtractor& extractor, int count) {
  std::vector<int> numbers;
  for (int frame = 0; frame < count; ++frame) {
    extractor.Advance();
    numbers.push_back(NumberOf(extractor));
  }
  return numbers;
}

/// Of an infile from its beginning.
inline std::vector<int> NumbersOf(const std::string& infile, int count,
                                  const vantra::CExtractorParams& params = Params()) {
  const auto extractor = Open(infile, params);
  if (!extractor) throw std::runtime_error(LastText());
  extractor->Start();
  return NumbersOf(*extractor, count);
}

/// first, first + 1, ...
inline std::vector<int> Counting(int first, int count) {
  std::vector<int> numbers;
  for (int number = first; number < first + count; ++number) numbers.push_back(number);
  return numbers;
}
