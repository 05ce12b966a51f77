#pragma once

#include "foundation/Object.h"
#include "foundation/Pointer.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

namespace orlo {

/// MT19937. Threads may share a generator; they then get less random numbers, nothing worse.
class CMersenneTwisterRandomNumberGenerator : public CObject {
public:
  /// Seeded with the clock.
  CMersenneTwisterRandomNumberGenerator();
  explicit CMersenneTwisterRandomNumberGenerator(std::uint32_t seed);

  std::uint32_t getNext();

private:
  static constexpr std::size_t kSize = 624;

  void refill();
  std::uint32_t word(std::size_t index) const { return state_[index].load(std::memory_order_relaxed); }

  std::array<std::atomic<std::uint32_t>, kSize> state_;
  std::atomic<std::size_t> index_{kSize};
};

P<CMersenneTwisterRandomNumberGenerator>& getRandomNumberGenerator();

}  // namespace orlo
