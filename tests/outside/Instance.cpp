#include "tests/outside/Instance.h"

#include <algorithm>
#include <random>
#include <string.h>
#include <utility>

namespace test {

Instance::Instance(const Module& from) : module(from) {
  module.initInfoStore(&handle);
}

Instance::Instance(const Module& from, const std::string& page) : Instance(from) {
  set("width", std::to_string(width));
  set("height", std::to_string(height));
  set("plugindata", toBase64(page));
}

Instance::~Instance() {
  module.releaseInfoStore(handle);
}

bool Instance::set(const std::string& key, const std::string& value) {
  return module.setParam(handle, key.c_str(), value.c_str()) == 0;
}

std::string Instance::lastError() const {
  const char* text = module.getLastError(handle);
  return {text, strnlen(text, MFILTER_ERROR_SIZE)};
}

void Instance::open() {
  module.open(handle);
}

void Instance::input(const Pixels& pixels) {
  module.setInputImage(handle, 1, 2, 3, 4, 5, pixels.empty() ? nullptr : pixels.data(), width * 4);
}

void Instance::input(Pixels&& pixels) {
  const Pixels former = std::exchange(kept_, std::move(pixels));
  input(std::as_const(kept_));
}

Instance::View Instance::begin() {
  void* pixels = nullptr;
  std::int32_t stride = 0;
  module.beginReadFrame(handle, 6, 7, &pixels, &stride);
  return {static_cast<std::uint8_t*>(pixels), stride};
}

void Instance::end() {
  module.endReadFrame(handle);
}

Pixels Instance::frame(int frameWidth, int frameHeight) {
  module.nextFrame(handle);
  const View view = begin();
  Pixels copy;
  for (int y = 0; view.pixels && y < frameHeight; ++y) {
    const std::uint8_t* row = view.pixels + static_cast<std::ptrdiff_t>(y) * view.stride;
    copy.insert(copy.end(), row, row + frameWidth * 4);
  }
  end();
  return copy;
}

std::string toBase64(const std::string& bytes) {
  static const std::string alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  unsigned bits = 0;
  int count = 0;
  for (const char byte : bytes) {
    bits = (bits << 8 | static_cast<unsigned char>(byte)) & 0xFFFF;
    for (count += 8; count >= 6; count -= 6) text += alphabet[bits >> (count - 6) & 63];
  }
  if (count > 0) text += alphabet[bits << (6 - count) & 63];
  return text;
}

std::string page(const std::string& elements) {
  return "<?xml version=\"1.0\"?><graphic-document version=\"1\">"
         "<content-box x=\"0\" y=\"0\" width=\"160\" height=\"90\"/>" +
         elements + "</graphic-document>";
}

std::string rectangle(int left, int top, int width, int height, const std::string& colour) {
  const auto number = [](double value) { return std::to_string(value); };
  return "<rectangle><center x=\"" + number(left + width / 2.0) + "\" y=\"" + number(top + height / 2.0) +
         "\"/><size width=\"" + number(width) + "\" height=\"" + number(height) + "\"/><brush style=\"100\"><color " +
         colour + "/></brush><pen style=\"106\" width=\"1\"><color red=\"0\"/></pen></rectangle>";
}

Pixels filled(std::uint8_t blue, std::uint8_t green, std::uint8_t red, std::uint8_t alpha, int width, int height) {
  Pixels pixels;
  for (int i = 0; i < width * height; ++i) pixels.insert(pixels.end(), {blue, green, red, alpha});
  return pixels;
}

Pixels black() {
  return filled(0, 0, 0, 255);
}

Pixels noise(unsigned seed) {
  std::mt19937 generator(seed);
  Pixels pixels(static_cast<std::size_t>(Instance::width) * Instance::height * 4);
  std::generate(pixels.begin(), pixels.end(), [&] { return static_cast<std::uint8_t>(generator()); });
  return pixels;
}

Pixels pixelAt(const Pixels& pixels, int x, int y) {
  const auto start = pixels.begin() + (static_cast<std::ptrdiff_t>(y) * Instance::width + x) * 4;
  return {start, start + 4};
}

}  // namespace test
