#pragma once

#include <chrono>
#include <cstdint>
#include <thread>

namespace orlo::posix {

/// Calls attempt until it succeeds or the time is over, at least once, a millisecond apart. The system's own timed
/// locks go by a clock that people set, or by one that ThreadSanitizer does not see.
template <class Attempt>
bool tryFor(std::uint32_t milliseconds, Attempt attempt) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
  while (!attempt()) {
    if (std::chrono::steady_clock::now() >= deadline) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

}  // namespace orlo::posix
