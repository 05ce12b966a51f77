#pragma once

#include "tests/outside/Module.h"

#include <cstdint>
#include <string>
#include <vector>

namespace test {

// Bytes B, G, R, A of rows without padding.
using Pixels = std::vector<std::uint8_t>;

// One instance of the module, with what tests do to it again and again.
class Instance {
public:
  static constexpr int width = 160;
  static constexpr int height = 90;

  explicit Instance(const Module& module);
  // With the size above and a page.
  Instance(const Module& module, const std::string& page);
  ~Instance();
  Instance(const Instance&) = delete;
  Instance& operator=(const Instance&) = delete;

  const Module& module;
  void* handle = nullptr;

  bool set(const std::string& key, const std::string& value);
  // The message as far as it is terminated or the buffer goes.
  std::string lastError() const;
  void open();
  // The module reads the pixels at each repaint: the first form leaves it to the caller to keep them, the second one
  // keeps them here. No pixels are no input.
  void input(const Pixels& pixels);
  void input(Pixels&& pixels);

  struct View {
    std::uint8_t* pixels = nullptr;
    std::int32_t stride = 0;
  };
  View begin();
  void end();
  // nextFrame, beginReadFrame, a copy and endReadFrame.
  Pixels frame(int frameWidth = width, int frameHeight = height);

private:
  Pixels kept_;
};

std::string toBase64(const std::string& bytes);

// A page of 160 x 90 units, so that a unit is a pixel of the instances above.
std::string page(const std::string& elements = {});
// A rectangle without border, its place in units, its colour as properties.
std::string rectangle(int left, int top, int width, int height, const std::string& colour);

Pixels filled(std::uint8_t blue, std::uint8_t green, std::uint8_t red, std::uint8_t alpha, int width = Instance::width,
              int height = Instance::height);
Pixels black();
// Any bytes, also such as are no premultiplied colours.
Pixels noise(unsigned seed);
Pixels pixelAt(const Pixels& pixels, int x, int y);

}  // namespace test
