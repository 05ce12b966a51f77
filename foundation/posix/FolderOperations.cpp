#include "foundation/posix/FolderOperations.h"

#include "foundation/posix/FileHandle.h"
#include "foundation/posix/FileOperations.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

namespace orlo::posix {

namespace {

using CFolderStream = std::unique_ptr<DIR, decltype([](DIR* stream) { closedir(stream); })>;

bool isDots(const char* name) {
  return std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0;
}

int openFolder(int parent, const char* name, CFileHandle& folder) {
  folder = CFileHandle(openat(parent, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  return folder ? 0 : errno;
}

/// Deletes all that goes at once. What is left is one folder that is not empty, or nothing.
int clearUpToFolder(int folder, std::string& notEmpty) {
  CFileHandle own;
  if (const int code = openFolder(folder, ".", own)) return code;
  const CFolderStream stream(fdopendir(own.get()));
  if (!stream) return errno;
  static_cast<void>(own.release());
  for (;;) {
    errno = 0;
    const dirent* entry = readdir(stream.get());
    if (!entry) return errno;
    if (isDots(entry->d_name)) continue;
    if (unlinkat(folder, entry->d_name, 0) == 0) continue;
    // A folder is told by EISDIR here, and by EPERM on other systems.
    const int code = errno;
    if (code != EISDIR && code != EPERM) return code;
    if (unlinkat(folder, entry->d_name, AT_REMOVEDIR) == 0) continue;
    if (errno == ENOTDIR) return code;
    if (errno != ENOTEMPTY && errno != EEXIST) return errno;
    notEmpty = entry->d_name;
    return 0;
  }
}

/// A folder on the way down, which is left and found again, so that the way may be longer than files may be open.
struct CLevel {
  dev_t device;
  ino_t number;
  std::string child;
};

int goUp(CFileHandle& folder, const CLevel& level) {
  CFileHandle parent;
  if (const int code = openFolder(folder.get(), "..", parent)) return code;
  struct stat status {};
  if (fstat(parent.get(), &status) != 0) return errno;
  // Somebody has moved the folder meanwhile.
  if (status.st_dev != level.device || status.st_ino != level.number) return ESTALE;
  folder = std::move(parent);
  return unlinkat(folder.get(), level.child.c_str(), AT_REMOVEDIR) == 0 ? 0 : errno;
}

int clearFolder(CFileHandle folder) {
  std::vector<CLevel> way;
  for (;;) {
    std::string child;
    if (const int code = clearUpToFolder(folder.get(), child)) return code;
    if (child.empty()) {
      if (way.empty()) return 0;
      if (const int code = goUp(folder, way.back())) return code;
      way.pop_back();
      continue;
    }
    struct stat status {};
    if (fstat(folder.get(), &status) != 0) return errno;
    CFileHandle inner;
    if (const int code = openFolder(folder.get(), child.c_str(), inner)) return code;
    way.push_back({status.st_dev, status.st_ino, child});
    folder = std::move(inner);
  }
}

int makeFolder(const std::string& path, mode_t mode) {
  return mkdir(path.c_str(), mode) == 0 ? 0 : errno;
}

bool isFolderEntry(int folder, const dirent& entry) {
  if (entry.d_type != DT_UNKNOWN && entry.d_type != DT_LNK) return entry.d_type == DT_DIR;
  struct stat status {};
  return fstatat(folder, entry.d_name, &status, 0) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

bool isLink(const std::string& path) {
  struct stat status {};
  return lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

int createFolder(const std::string& path) {
  return makeFolder(path, 0777);
}

int createFolders(const std::string& path, mode_t mode) {
  if (path.empty()) return ENOENT;
  for (std::size_t end = 0; end != std::string::npos;) {
    end = path.find('/', end + 1);
    const std::string level = path.substr(0, end);
    if (folderExists(level)) continue;
    const int code = makeFolder(level, mode);
    // Somebody else may have made it meanwhile.
    if (code != 0 && !folderExists(level)) return code;
  }
  return 0;
}

int deleteFolder(const std::string& path) {
  if (isLink(path)) return folderExists(path) ? deleteFile(path) : ENOTDIR;
  return rmdir(path.c_str()) == 0 ? 0 : errno;
}

int deleteFolderTree(const std::string& path) {
  if (isLink(path)) return deleteFolder(path);
  CFileHandle folder;
  if (const int code = openFolder(AT_FDCWD, path.c_str(), folder)) return code;
  if (const int code = clearFolder(std::move(folder))) return code;
  return deleteFolder(path);
}

std::vector<CFolderEntry> readFolder(const std::string& path) {
  std::vector<CFolderEntry> entries;
  const CFolderStream stream(opendir(path.c_str()));
  if (!stream) return entries;
  while (const dirent* entry = readdir(stream.get()))
    if (!isDots(entry->d_name)) entries.push_back({entry->d_name, isFolderEntry(dirfd(stream.get()), *entry)});
  std::sort(entries.begin(), entries.end(), [](const auto& a, const auto& b) { return a.name < b.name; });
  return entries;
}

}  // namespace orlo::posix
