#pragma once

#include "filter/InfoStore.h"
#include "filter/Parameters.h"
#include "graphics/model/Base64.h"
#include "graphics/paint/Toolkit.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace authfilter {

/// An instance of 160 by 90 pixels, and pages of as many units.
class CPageTest : public testing::Test {
protected:
  static constexpr int kWidth = 160;
  static constexpr int kHeight = 90;

  CPageTest() {
    graphics::StartToolkit();
    store.width = kWidth;
    store.height = kHeight;
  }

  void SetPage(const std::string& elements, const std::string& box = Box(kWidth, kHeight)) {
    const std::string xml = "<page>" + box + elements + "</page>";
    const auto bytes = std::span(reinterpret_cast<const std::uint8_t*>(xml.data()), xml.size());
    ASSERT_TRUE(SetParam(store, "plugindata", graphics::EncodeBase64(bytes).c_str()));
  }
  void Open(const std::string& elements) {
    SetPage(elements);
    store.Open();
  }

  static std::string Box(double width, double height) {
    return "<content-box x=\"0\" y=\"0\" width=\"" + std::to_string(width) + "\" height=\"" + std::to_string(height) +
           "\"/>";
  }
  static std::string Rectangle(int x, int y, int width, int height, const std::string& colour,
                               const std::string& properties = "") {
    return "<rectangle " + properties + ">" + Frame(x, y, width, height) + "<brush style=\"100\"><color " + colour +
           "/></brush><pen style=\"106\" width=\"1\"><color red=\"0\" green=\"0\" blue=\"0\" alpha=\"0\"/></pen>"
           "</rectangle>";
  }
  static std::string Mirror(int x, int y, int width, int height) {
    return "<mirror>" + Frame(x, y, width, height) + "</mirror>";
  }
  static std::string Frame(int x, int y, int width, int height) {
    return "<center x=\"" + std::to_string(x + width / 2.0) + "\" y=\"" + std::to_string(y + height / 2.0) +
           "\"/><size width=\"" + std::to_string(width) + "\" height=\"" + std::to_string(height) + "\"/>";
  }

  using Pixel = std::array<int, 4>;
  /// Blue, green, red, alpha of the frame as it is now.
  Pixel At(int x, int y) {
    const graphics::CPixels pixels = store.BeginReadFrame();
    const std::uint8_t* pixel = pixels.data + static_cast<std::ptrdiff_t>(y) * pixels.stride + x * 4;
    const Pixel result{pixel[0], pixel[1], pixel[2], pixel[3]};
    store.EndReadFrame();
    return result;
  }

  /// An input whose every pixel is another one.
  static std::vector<std::uint8_t> Input(int stride = kWidth * 4) {
    std::vector<std::uint8_t> input(static_cast<std::size_t>(stride) * kHeight, 0xEE);
    for (int y = 0; y < kHeight; ++y)
      for (int x = 0; x < kWidth; ++x) {
        std::uint8_t* pixel = input.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(stride) + x * 4;
        pixel[0] = static_cast<std::uint8_t>(x);
        pixel[1] = static_cast<std::uint8_t>(y);
        pixel[2] = static_cast<std::uint8_t>(x * y);
        pixel[3] = 255;
      }
    return input;
  }

  const std::string kRed = R"(red="255" green="0" blue="0" alpha="255")";
  const std::string kBlue = R"(red="0" green="0" blue="255" alpha="255")";
  const std::string kGreenHalf = R"(red="0" green="255" blue="0" alpha="128")";

  CInfoStore store;
};

}  // namespace authfilter
