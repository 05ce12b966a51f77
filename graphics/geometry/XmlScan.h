#pragma once

#include <span>
#include <string>

namespace graphics::xml {

struct CScanLimits {
  int depth;
  int elements;
};

/// Walks XML that nobody has looked at before. The result is empty if it is well formed and within the limits,
/// otherwise it says what is wrong. Trees are freed by recursion, so that their depth must be bounded before they are
/// made.
std::string Scan(std::span<const unsigned char> document, const CScanLimits& limits);

}  // namespace graphics::xml
