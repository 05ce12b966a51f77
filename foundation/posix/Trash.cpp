#include "foundation/posix/Trash.h"

#include "foundation/posix/FileBytes.h"
#include "foundation/posix/FileHandle.h"
#include "foundation/posix/FileOperations.h"
#include "foundation/posix/FolderOperations.h"
#include "foundation/posix/SpecialFolders.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <sys/stat.h>

namespace orlo::posix {

namespace {

/// A recycle bin, its folders held so that nobody can put others in their place.
struct CTrash {
  CFileHandle files;
  CFileHandle info;
  /// The start of the paths that its notes leave out.
  std::string top;
};

/// The path with its folder resolved, but not the last name, which may be a link.
int resolveFolder(const std::string& path, std::string& resolved) {
  std::string entry = path;
  while (entry.size() > 1 && entry.ends_with('/')) entry.pop_back();
  const std::size_t slash = entry.rfind('/');
  const std::string name = entry.substr(slash + 1);
  if (name.empty() || name == "." || name == "..") return EINVAL;
  const std::string folder = slash == std::string::npos ? "." : entry.substr(0, slash + 1);
  const std::unique_ptr<char, decltype([](char* text) { std::free(text); })> real(realpath(folder.c_str(), nullptr));
  if (!real) return errno;
  resolved = real.get();
  if (!resolved.ends_with('/')) resolved += '/';
  resolved += name;
  return 0;
}

/// The highest folder above the path that is on its file system.
std::string topFolderOf(const std::string& path, dev_t device) {
  std::string top = path;
  for (;;) {
    const std::string parent = top.substr(0, std::max<std::size_t>(top.rfind('/'), 1));
    struct stat status {};
    if (stat(parent.c_str(), &status) != 0 || status.st_dev != device) return top;
    top = parent;
    if (top == "/") return top;
  }
}

int openFolder(int parent, const std::string& name, CFileHandle& folder) {
  folder = CFileHandle(openat(parent, name.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  return folder ? 0 : errno;
}

/// Makes it if it is not there. Others must not lead a user's files elsewhere: by a link, or by a folder of theirs.
int openOwnFolder(int parent, const std::string& name, CFileHandle& folder) {
  if (mkdirat(parent, name.c_str(), 0700) != 0 && errno != EEXIST) return errno;
  if (const int code = openFolder(parent, name, folder)) return code;
  struct stat status {};
  if (fstat(folder.get(), &status) != 0) return errno;
  return status.st_uid == geteuid() ? 0 : EACCES;
}

int openTrash(int parent, const std::string& name, CTrash& trash) {
  CFileHandle folder;
  if (const int code = openOwnFolder(parent, name, folder)) return code;
  if (const int code = openOwnFolder(folder.get(), "files", trash.files)) return code;
  return openOwnFolder(folder.get(), "info", trash.info);
}

int openHomeTrash(CTrash& trash) {
  const std::string data = specialFolder(ESpecialFolder::localAppData);
  if (const int code = createFolders(data, 0700)) return code;
  const CFileHandle folder(open(data.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  return folder ? openTrash(folder.get(), "Trash", trash) : errno;
}

/// The administrator's folder for all users counts only if nobody can replace what is in it.
int openSharedTrash(int top, const std::string& user, CTrash& trash) {
  CFileHandle shared;
  if (const int code = openFolder(top, ".Trash", shared)) return code;
  struct stat status {};
  if (fstat(shared.get(), &status) != 0) return errno;
  return (status.st_mode & S_ISVTX) != 0 ? openTrash(shared.get(), user, trash) : EACCES;
}

int openTopTrash(const std::string& top, CTrash& trash) {
  const std::string user = std::to_string(geteuid());
  CFileHandle folder;
  if (const int code = openFolder(AT_FDCWD, top, folder)) return code;
  trash.top = top == "/" ? "/" : top + "/";
  if (openSharedTrash(folder.get(), user, trash) == 0) return 0;
  return openTrash(folder.get(), ".Trash-" + user, trash);
}

std::string escaped(std::string_view path) {
  constexpr std::string_view kPlain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-_.!~*'()/";
  std::string result;
  for (const char byte : path) {
    if (kPlain.find(byte) != std::string_view::npos) {
      result += byte;
      continue;
    }
    char text[4];
    std::snprintf(text, sizeof text, "%%%02X", static_cast<unsigned char>(byte));
    result += text;
  }
  return result;
}

std::string infoOf(const std::string& path) {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char date[32];
  std::strftime(date, sizeof date, "%Y-%m-%dT%H:%M:%S", &local);
  return "[Trash Info]\nPath=" + escaped(path) + "\nDeletionDate=" + date + "\n";
}

/// Cut so that a number and ".trashinfo" find room behind it in a name of 255 bytes.
std::string baseOf(std::string name) {
  constexpr std::size_t kMost = 230;
  if (name.size() <= kMost) return name;
  std::size_t end = kMost;
  while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0) == 0x80) --end;
  return name.substr(0, end);
}

/// The note comes first: whose name it has got, nobody else's file takes.
int moveInto(const CTrash& trash, const std::string& path) {
  const std::string base = baseOf(path.substr(path.rfind('/') + 1));
  const std::string info = infoOf(path.substr(trash.top.size()));
  for (unsigned number = 1;; ++number) {
    const std::string name = number == 1 ? base : base + "." + std::to_string(number);
    const std::string note = name + ".trashinfo";
    const CFileHandle file(openat(trash.info.get(), note.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!file && errno == EEXIST) continue;
    if (!file) return errno;
    int code = writeAll(file.get(), info);
    if (code == 0) code = moveEntryInto(path, trash.files.get(), name);
    if (code == 0) return 0;
    unlinkat(trash.info.get(), note.c_str(), 0);
    // A file without a note, which somebody has left behind.
    if (code != EEXIST) return code;
  }
}

}  // namespace

int moveToTrash(const std::string& path) {
  std::string entry;
  if (const int code = resolveFolder(path, entry)) return code;
  struct stat status {};
  if (lstat(entry.c_str(), &status) != 0) return errno;

  CTrash home;
  struct stat place {};
  if (openHomeTrash(home) == 0 && fstat(home.files.get(), &place) == 0 && place.st_dev == status.st_dev) {
    const int code = moveInto(home, entry);
    if (code != EXDEV) return code;
  }
  const std::string top = topFolderOf(entry, status.st_dev);
  // Where a file system is mounted there is no place on it for that folder itself.
  if (top == entry) return EBUSY;
  CTrash trash;
  if (const int code = openTopTrash(top, trash)) return code;
  return moveInto(trash, entry);
}

}  // namespace orlo::posix
