#include "foundation/posix/LibraryVersion.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <link.h>
#include <memory>

namespace orlo::posix {

std::int32_t libraryVersion(const std::string& name) {
  const std::unique_ptr<void, decltype([](void* library) { dlclose(library); })> library(
      dlopen(name.c_str(), RTLD_LAZY | RTLD_LOCAL));
  link_map* map = nullptr;
  if (!library || dlinfo(library.get(), RTLD_DI_LINKMAP, &map) != 0) return 0;
  // The name that is asked for is a link to that of the version.
  const std::unique_ptr<char, decltype([](char* text) { std::free(text); })> file(realpath(map->l_name, nullptr));
  return file ? versionInName(file.get()) : 0;
}

std::int32_t versionInName(const std::string& file) {
  constexpr int kMost = 0x7FFF;
  const std::string name = file.substr(file.rfind('/') + 1);
  const std::size_t ending = name.find(".so.");
  int major = 0;
  int minor = 0;
  if (ending == std::string::npos || std::sscanf(name.c_str() + ending, ".so.%9d.%9d", &major, &minor) < 1) return 0;
  if (major < 0 || minor < 0) return 0;
  return std::min(major, kMost) << 16 | std::min(minor, kMost);
}

}  // namespace orlo::posix
