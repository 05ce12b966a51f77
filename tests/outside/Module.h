#pragma once

#include "mfilter/mfilter.h"

#include <string>

namespace test {

// The module as a host loads it: by dlopen, every function looked up by name.
class Module {
public:
  Module();
  ~Module();
  Module(const Module&) = delete;
  Module& operator=(const Module&) = delete;

  decltype(&mfilter_initInfoStore) initInfoStore;
  decltype(&mfilter_releaseInfoStore) releaseInfoStore;
  decltype(&mfilter_setParam) setParam;
  decltype(&mfilter_open) open;
  decltype(&mfilter_getInputCount) getInputCount;
  decltype(&mfilter_setInputImage) setInputImage;
  decltype(&mfilter_nextFrame) nextFrame;
  decltype(&mfilter_beginReadFrame) beginReadFrame;
  decltype(&mfilter_endReadFrame) endReadFrame;
  decltype(&mfilter_newThread) newThread;
  decltype(&mfilter_close) close;
  decltype(&mfilter_getLastError) getLastError;

private:
  template <typename Function>
  void find(Function& function, const std::string& name);

  void* library_;
};

}  // namespace test
