#include "foundation/posix/ConfigFolder.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace orlo::posix {

namespace {

// Relative paths are to be passed over.
std::string absoluteFrom(const char* variable) {
  const char* value = std::getenv(variable);
  return value && value[0] == '/' ? value : "";
}

std::string homeFromPasswords() {
  passwd entry{};
  passwd* found = nullptr;
  std::vector<char> buffer(16384);
  getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found);
  return found && found->pw_dir && found->pw_dir[0] == '/' ? found->pw_dir : "";
}

}  // namespace

std::string configFolder() {
  if (std::string folder = absoluteFrom("XDG_CONFIG_HOME"); !folder.empty()) return folder;
  std::string home = absoluteFrom("HOME");
  if (home.empty()) home = homeFromPasswords();
  return home.empty() ? home : home + "/.config";
}

}  // namespace orlo::posix
