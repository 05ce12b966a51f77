#include "tests/backend_script/ScriptedBackend.h"

#include <dlfcn.h>
#include <stdexcept>

namespace {

void* Load(const std::string& folder) {
  void* const library = dlopen((SCRIPTED_BACKENDS "/" + folder + "/libvantraplugin.so").c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!library) throw std::runtime_error(dlerror());
  return library;
}

}  // namespace

CScriptedBackend::CScriptedBackend() : CScriptedBackend("nothing") {}

CScriptedBackend::CScriptedBackend(const char* lacking)
    : library_(Load(std::string("lacks_") + lacking)),
      script_(reinterpret_cast<Script_getFunction>(dlsym(library_, "Script_get"))()) {
  script_->Reset();
}

CScriptedBackend::~CScriptedBackend() {
  dlclose(library_);
}
