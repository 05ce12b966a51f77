#include "foundation/SharedLibrary.h"

#include "foundation/Object.h"
#include "foundation/String.h"

#include <dlfcn.h>
#include <string>

namespace orlo {

namespace {

class CSharedLibrary : public CObject, public ISharedLibrary {
public:
  explicit CSharedLibrary(void* handle) : handle_(handle) {}
  ~CSharedLibrary() override { dlclose(handle_); }
  CSharedLibrary(const CSharedLibrary&) = delete;
  CSharedLibrary& operator=(const CSharedLibrary&) = delete;

  void* findFunction(const char* name) const override { return dlsym(handle_, name); }

private:
  void* handle_;
};

}  // namespace

String getSharedLibraryFileName(const String& name) {
  return String("lib") + name + ".so";
}

P<ISharedLibrary> loadSharedLibrary(const String& fileName) {
  void* const handle = dlopen(toStdString(fileName).c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!handle) return nullptr;
  return makeObject<CSharedLibrary>(handle);
}

}  // namespace orlo
