#include "foundation/posix/MachineInfo.h"

#include "foundation/posix/FolderOperations.h"
#include "foundation/posix/SpecialFolders.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <pwd.h>
#include <sys/utsname.h>
#include <unistd.h>
#include <vector>

namespace orlo::posix {

namespace {

std::string kernelName() {
  utsname names{};
  if (uname(&names) != 0) return {};
  return std::string(names.sysname) + " " + names.release;
}

std::string firstWord(const std::string& file) {
  std::ifstream stream(file);
  std::string word;
  stream >> word;
  return word;
}

}  // namespace

std::string userName() {
  std::vector<char> texts(16384);
  passwd entry{};
  passwd* found = nullptr;
  if (getpwuid_r(geteuid(), &entry, texts.data(), texts.size(), &found) == 0 && found) return found->pw_name;
  const char* name = std::getenv("USER");
  return name && *name ? name : std::to_string(geteuid());
}

std::string osName() {
  for (const char* file : {"/etc/os-release", "/usr/lib/os-release"})
    for (const char* name : {"PRETTY_NAME", "NAME"})
      if (std::string value = readShellValue(file, name); !value.empty()) return value;
  return kernelName();
}

std::string osVersion() {
  const std::string name = osName();
  const std::string kernel = kernelName();
  return name == kernel ? name : name + " (" + kernel + ")";
}

std::int64_t physicalMemory() {
  return std::max<std::int64_t>(sysconf(_SC_PHYS_PAGES), 0) * std::max<std::int64_t>(sysconf(_SC_PAGESIZE), 0);
}

int processorCount() {
  return static_cast<int>(std::max(sysconf(_SC_NPROCESSORS_ONLN), 1L));
}

CScreenMetrics screenMetrics() {
  const std::string folder = "/sys/class/drm";
  for (const CFolderEntry& entry : readFolder(folder)) {
    const std::string connector = folder + "/" + entry.name;
    if (firstWord(connector + "/status") != "connected") continue;
    CScreenMetrics screen;
    if (std::sscanf(firstWord(connector + "/modes").c_str(), "%dx%d", &screen.width, &screen.height) == 2)
      return screen;
  }
  return {};
}

std::string programFile() {
  for (std::size_t size = 1000;; size *= 2) {
    std::string path(size, '\0');
    const ssize_t length = readlink("/proc/self/exe", path.data(), size);
    if (length < 0) return {};
    if (static_cast<std::size_t>(length) == size) continue;
    path.resize(static_cast<std::size_t>(length));
    return path;
  }
}

std::string currentFolder() {
  const std::unique_ptr<char, decltype([](char* text) { std::free(text); })> path(getcwd(nullptr, 0));
  return path ? path.get() : "";
}

}  // namespace orlo::posix
