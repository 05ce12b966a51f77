#pragma once

#include "graphics/model/Base64.h"
#include "include/mfilter/mfilter.h"

#include <cstdint>
#include <span>
#include <string>

/// An instance of the filter, as a host has it.
class CFilterInstance {
public:
  CFilterInstance(const std::string& page, int width, int height) {
    mfilter_initInfoStore(&handle_);
    Set("width", std::to_string(width));
    Set("height", std::to_string(height));
    Set("plugindata",
        graphics::EncodeBase64(std::span(reinterpret_cast<const std::uint8_t*>(page.data()), page.size())));
  }
  ~CFilterInstance() {
    mfilter_close(handle_);
    mfilter_releaseInfoStore(handle_);
  }
  CFilterInstance(const CFilterInstance&) = delete;
  CFilterInstance& operator=(const CFilterInstance&) = delete;

  void Set(const char* key, const std::string& value) { mfilter_setParam(handle_, key, value.c_str()); }
  void Open() { mfilter_open(handle_); }
  void SetInput(const void* pixels, int stride) { mfilter_setInputImage(handle_, 0, 0, 0, 0, 0, pixels, stride); }
  const void* Frame() {
    void* pixels = nullptr;
    std::int32_t stride = 0;
    mfilter_nextFrame(handle_);
    mfilter_beginReadFrame(handle_, 0, 0, &pixels, &stride);
    mfilter_endReadFrame(handle_);
    return pixels;
  }

private:
  void* handle_ = nullptr;
};

/// A page of 1920 by 1080 units, or one filled rectangle of it.
inline std::string PageOf(const std::string& elements) {
  return R"(<page><content-box x="0" y="0" width="1920" height="1080"/>)" + elements + "</page>";
}

inline std::string RectangleAt(double x, double y, double width, double height, int alpha) {
  return R"(<rectangle><center x=")" + std::to_string(x + width / 2) + R"(" y=")" + std::to_string(y + height / 2) +
         R"("/><size width=")" + std::to_string(width) + R"(" height=")" + std::to_string(height) +
         R"("/><brush style="100"><color red="200" green="40" blue="90" alpha=")" + std::to_string(alpha) +
         R"("/></brush><pen style="106" width="1"><color red="0" green="0" blue="0" alpha="0"/></pen></rectangle>)";
}
