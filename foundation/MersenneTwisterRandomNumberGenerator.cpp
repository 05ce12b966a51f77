#include "foundation/MersenneTwisterRandomNumberGenerator.h"

#include "foundation/Singleton.h"
#include "foundation/TimeManager.h"

namespace orlo {

CMersenneTwisterRandomNumberGenerator::CMersenneTwisterRandomNumberGenerator()
    : CMersenneTwisterRandomNumberGenerator(static_cast<std::uint32_t>(getTimeManager()->getTime())) {}

CMersenneTwisterRandomNumberGenerator::CMersenneTwisterRandomNumberGenerator(std::uint32_t seed) {
  std::uint32_t value = seed;
  state_[0] = value;
  for (std::uint32_t i = 1; i < kSize; ++i) {
    value = 1812433253U * (value ^ value >> 30) + i;
    state_[i] = value;
  }
}

// Threads that share the generator may take the same word or refill twice; they stay inside the state.
std::uint32_t CMersenneTwisterRandomNumberGenerator::getNext() {
  std::size_t index = index_.load(std::memory_order_relaxed);
  if (index >= kSize) {
    refill();
    index = 0;
  }
  index_.store(index + 1, std::memory_order_relaxed);
  std::uint32_t value = word(index);
  value ^= value >> 11;
  value ^= value << 7 & 0x9D2C5680U;
  value ^= value << 15 & 0xEFC60000U;
  return value ^ value >> 18;
}

void CMersenneTwisterRandomNumberGenerator::refill() {
  constexpr std::size_t distance = 397;
  for (std::size_t i = 0; i < kSize; ++i) {
    const std::uint32_t mixed = (word(i) & 0x80000000U) | (word((i + 1) % kSize) & 0x7FFFFFFFU);
    const std::uint32_t twist = mixed & 1U ? 0x9908B0DFU : 0U;
    state_[i].store(word((i + distance) % kSize) ^ mixed >> 1 ^ twist, std::memory_order_relaxed);
  }
}

P<CMersenneTwisterRandomNumberGenerator>& getRandomNumberGenerator() {
  static TSingleton<CMersenneTwisterRandomNumberGenerator> singleton;
  return singleton.get([] { return makeObject<CMersenneTwisterRandomNumberGenerator>(); });
}

}  // namespace orlo
