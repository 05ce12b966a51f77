#pragma once

#include <cstdint>

namespace host {

// Frames a second as a fraction of two positive numbers.
struct FrameRate {
  int num = 25;
  int den = 1;

  double framesPerSecond() const { return static_cast<double>(num) / static_cast<double>(den); }
  // Seconds from frame 0 to the given one.
  double timeOf(std::int64_t frame) const { return static_cast<double>(frame) * den / num; }
  bool operator==(const FrameRate&) const = default;
};

// Frame numbers, the last one included.
struct FrameRange {
  std::int64_t first = 0;
  std::int64_t last = 0;
};

}  // namespace host
