#include "foundation/posix/SpecialFolders.h"

#include "foundation/posix/FileBytes.h"
#include "foundation/posix/FileHandle.h"

#include <cstdlib>
#include <fcntl.h>
#include <pwd.h>
#include <sstream>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace orlo::posix {

namespace {

constexpr std::size_t kMostBytes = 1 << 20;

/// A relative path in a variable means nothing.
std::string absoluteVariable(const char* name) {
  const char* value = std::getenv(name);
  return value && *value == '/' ? value : "";
}

std::string withoutEnd(std::string path) {
  while (path.size() > 1 && path.ends_with('/')) path.pop_back();
  return path;
}

std::string homeFolder() {
  if (std::string home = absoluteVariable("HOME"); !home.empty()) return home;
  std::vector<char> texts(16384);
  passwd entry{};
  passwd* found = nullptr;
  if (getpwuid_r(geteuid(), &entry, texts.data(), texts.size(), &found) == 0 && found && *found->pw_dir == '/')
    return found->pw_dir;
  return "/";
}

std::string belowHome(const char* name) {
  const std::string home = homeFolder();
  return home + (home.ends_with('/') ? "" : "/") + name;
}

std::string baseFolder(const char* variable, const char* usual) {
  const std::string set = absoluteVariable(variable);
  return set.empty() ? belowHome(usual) : set;
}

std::string settingsFolder() {
  return baseFolder("XDG_CONFIG_HOME", ".config");
}

std::string userFolder(const char* variable, const char* usual) {
  std::string set = readShellValue(settingsFolder() + "/user-dirs.dirs", variable);
  if (set == "$HOME" || set.starts_with("$HOME/")) set.replace(0, 5, homeFolder());
  if (!set.starts_with('/')) set = absoluteVariable(variable);
  return set.empty() ? belowHome(usual) : set;
}

std::string contentOf(int file) {
  try {
    return readAll(file, kMostBytes);
  } catch (const std::system_error&) {
    return {};
  }
}

std::string unquoted(const std::string& value) {
  if (value.empty() || (value.front() != '"' && value.front() != '\'')) return value;
  std::string result;
  for (std::size_t i = 1; i < value.size() && value[i] != value.front(); ++i) {
    if (value[i] == '\\' && value.front() == '"' && i + 1 < value.size()) ++i;
    result += value[i];
  }
  return result;
}

std::string folderOf(ESpecialFolder id) {
  switch (id) {
    case ESpecialFolder::home:
      return homeFolder();
    case ESpecialFolder::desktop:
      return userFolder("XDG_DESKTOP_DIR", "Desktop");
    case ESpecialFolder::documents:
      return userFolder("XDG_DOCUMENTS_DIR", "Documents");
    case ESpecialFolder::music:
      return userFolder("XDG_MUSIC_DIR", "Music");
    case ESpecialFolder::pictures:
      return userFolder("XDG_PICTURES_DIR", "Pictures");
    case ESpecialFolder::videos:
      return userFolder("XDG_VIDEOS_DIR", "Videos");
    case ESpecialFolder::downloads:
      return userFolder("XDG_DOWNLOAD_DIR", "Downloads");
    case ESpecialFolder::templates:
      return userFolder("XDG_TEMPLATES_DIR", "Templates");
    case ESpecialFolder::publicShare:
      return userFolder("XDG_PUBLICSHARE_DIR", "Public");
    case ESpecialFolder::appData:
      return settingsFolder();
    case ESpecialFolder::localAppData:
      return baseFolder("XDG_DATA_HOME", ".local/share");
    case ESpecialFolder::cache:
      return baseFolder("XDG_CACHE_HOME", ".cache");
  }
  return homeFolder();
}

}  // namespace

std::string specialFolder(ESpecialFolder id) {
  return withoutEnd(folderOf(id));
}

std::string tempFolder() {
  const std::string set = absoluteVariable("TMPDIR");
  return set.empty() ? "/tmp" : withoutEnd(set);
}

std::string readShellValue(const std::string& file, const std::string& name) {
  // Nothing that blocks when it is opened, such as a pipe, is such a file.
  const CFileHandle handle(open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  std::istringstream stream(handle ? contentOf(handle.get()) : std::string());
  std::string result;
  for (std::string line; std::getline(stream, line);) {
    const std::size_t start = line.find_first_not_of(" \t");
    if (start == std::string::npos || line.compare(start, name.size(), name) != 0) continue;
    const std::size_t equals = start + name.size();
    if (equals < line.size() && line[equals] == '=') result = unquoted(line.substr(equals + 1));
  }
  return result;
}

}  // namespace orlo::posix
