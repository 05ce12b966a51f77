#pragma once

#include <span>
#include <string>

namespace graphics::xml {

struct CScanLimits {
  int depth;
  int elements;
};

enum class EScan { good, malformed, beyondLimit };

struct CScanResult {
  EScan verdict = EScan::good;
  /// What is wrong, with its line; empty if nothing is.
  std::string problem;
};

/// Walks XML that nobody has looked at before: is it well formed, and within the limits? Trees are freed by recursion,
/// so that their depth must be bounded before they are made.
CScanResult Scan(std::span<const unsigned char> document, const CScanLimits& limits);

}  // namespace graphics::xml
