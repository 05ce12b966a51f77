#include "tests/outside/Module.h"

#include <dlfcn.h>
#include <stdexcept>

namespace test {

Module::Module() : library_(dlopen(MFILTER_MODULE, RTLD_NOW | RTLD_LOCAL)) {
  if (!library_) throw std::runtime_error(dlerror());
  find(initInfoStore, "mfilter_initInfoStore");
  find(releaseInfoStore, "mfilter_releaseInfoStore");
  find(setParam, "mfilter_setParam");
  find(open, "mfilter_open");
  find(getInputCount, "mfilter_getInputCount");
  find(setInputImage, "mfilter_setInputImage");
  find(nextFrame, "mfilter_nextFrame");
  find(beginReadFrame, "mfilter_beginReadFrame");
  find(endReadFrame, "mfilter_endReadFrame");
  find(newThread, "mfilter_newThread");
  find(close, "mfilter_close");
  find(getLastError, "mfilter_getLastError");
}

Module::~Module() {
  dlclose(library_);
}

template <typename Function>
void Module::find(Function& function, const std::string& name) {
  function = reinterpret_cast<Function>(dlsym(library_, name.c_str()));
  if (!function) throw std::runtime_error(dlerror());
}

}  // namespace test
