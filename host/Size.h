#pragma once

#include <string>

namespace host {

// Pixels.
struct Size {
  static constexpr int maxSide = 16384;

  int width = 0;
  int height = 0;

  bool isUsable() const { return width >= 1 && height >= 1 && width <= maxSide && height <= maxSide; }
  double aspect() const { return static_cast<double>(width) / static_cast<double>(height); }
  std::string text() const { return std::to_string(width) + "x" + std::to_string(height); }
  bool operator==(const Size&) const = default;
};

}  // namespace host
