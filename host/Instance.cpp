#include "host/Instance.h"

#include "mfilter/mfilter.h"

#include <cstring>
#include <new>
#include <stdexcept>

namespace host {

Instance::Instance() {
  mfilter_initInfoStore(&handle_);
  if (!handle_) throw std::bad_alloc();
}

Instance::~Instance() {
  mfilter_close(handle_);
  mfilter_releaseInfoStore(handle_);
}

bool Instance::set(const std::string& key, const std::string& value) {
  return mfilter_setParam(handle_, key.c_str(), value.c_str()) == 0;
}

std::string Instance::lastError() const {
  const char* text = mfilter_getLastError(handle_);
  return {text, strnlen(text, MFILTER_ERROR_SIZE)};
}

void Instance::open() {
  mfilter_open(handle_);
}

void Instance::setInput(const PictureView& picture) {
  mfilter_setInputImage(handle_, 0, 0, 0, 0, 0, picture.pixels, picture.stride);
}

void Instance::nextFrame() {
  mfilter_nextFrame(handle_);
}

Instance::Frame::Frame(Instance& instance, Size size) : handle_(instance.handle_) {
  void* pixels = nullptr;
  std::int32_t stride = 0;
  mfilter_beginReadFrame(handle_, 0, 0, &pixels, &stride);
  if (!pixels) throw std::runtime_error("the module gave no frame");
  view_ = {static_cast<const std::uint8_t*>(pixels), stride, size};
}

Instance::Frame::~Frame() {
  mfilter_endReadFrame(handle_);
}

}  // namespace host
