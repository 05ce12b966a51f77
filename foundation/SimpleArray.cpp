#include "foundation/SimpleArray.h"

#include <cstdint>
#include <limits>
#include <stdexcept>

namespace orlo {

namespace {

constexpr std::int64_t kMostElements = std::numeric_limits<int>::max();

}  // namespace

int CSimpleArrayTemplateBase::grownCapacity(int capacity, int count, int growStep, int more) {
  const std::int64_t needed = std::int64_t{count} + more;
  if (needed > kMostElements) throw std::length_error("array of 2^31 elements or more");
  return static_cast<int>(std::min(std::max(needed, std::int64_t{capacity} + growStep), kMostElements));
}

int CSimpleArrayTemplateBase::grownBlock(int block, int capacity) {
  return static_cast<int>(std::min(std::max(std::int64_t{capacity}, std::int64_t{block} + block / 2), kMostElements));
}

}  // namespace orlo
