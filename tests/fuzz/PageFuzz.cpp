// Feeds page XML through the functions that a host calls: parameters, open, three frames, close.

#include "graphics/model/Base64.h"
#include "include/mfilter/mfilter.h"

#include <cstdint>
#include <exception>
#include <span>
#include <string>
#include <vector>

namespace {

constexpr int kWidth = 96;
constexpr int kHeight = 54;

void readFrame(void* handle) {
  void* pixels = nullptr;
  std::int32_t stride = 0;
  mfilter_nextFrame(handle);
  mfilter_beginReadFrame(handle, 0, 0, &pixels, &stride);
  if (pixels) {
    std::uint32_t sum = 0;
    for (int y = 0; y < kHeight; ++y)
      for (int x = 0; x < kWidth * 4; ++x)
        sum += static_cast<const std::uint8_t*>(pixels)[static_cast<std::ptrdiff_t>(y) * stride + x];
    volatile std::uint32_t sink = sum;
    static_cast<void>(sink);
  }
  mfilter_endReadFrame(handle);
}

template <class Call>
void attempt(Call call) {
  try {
    call();
  } catch (const std::exception& error) {
    if (!error.what()) __builtin_trap();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::vector<std::uint8_t> input(static_cast<std::size_t>(kWidth) * kHeight * 4, 0x80);
  void* handle = nullptr;
  mfilter_initInfoStore(&handle);
  mfilter_setParam(handle, "width", std::to_string(kWidth).c_str());
  mfilter_setParam(handle, "height", std::to_string(kHeight).c_str());
  if (size % 2) mfilter_setParam(handle, "noalpha", "1");
  if (mfilter_setParam(handle, "plugindata", graphics::EncodeBase64(std::span(data, size)).c_str()) == 0) {
    // There is no backend here, so that a page with movies can't be opened altogether. What it has is painted.
    attempt([&] { mfilter_open(handle); });
    attempt([&] {
      readFrame(handle);
      mfilter_setInputImage(handle, 0, 0, 0, 0, 0, input.data(), kWidth * 4);
      readFrame(handle);
      readFrame(handle);
    });
  }
  mfilter_close(handle);
  mfilter_releaseInfoStore(handle);
  return 0;
}
