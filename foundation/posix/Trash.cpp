#include "foundation/posix/Trash.h"

#include "foundation/TimeManager.h"
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

/// A recycle bin, and the start of the paths that it leaves out.
struct CTrash {
  std::string folder;
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

int makePrivate(const std::string& folder) {
  return mkdir(folder.c_str(), 0700) == 0 || folderExists(folder) ? 0 : errno;
}

/// Others must not lead a user's files elsewhere by a link.
bool isOwnFolder(const std::string& folder) {
  struct stat status {};
  return lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == geteuid();
}

int makeTrash(const std::string& folder) {
  if (const int code = makePrivate(folder)) return code;
  if (!isOwnFolder(folder)) return EACCES;
  if (const int code = makePrivate(folder + "/files")) return code;
  return makePrivate(folder + "/info");
}

int homeTrash(CTrash& trash) {
  const std::string data = specialFolder(ESpecialFolder::localAppData);
  if (const int code = createFolders(data)) return code;
  trash.folder = data + "/Trash";
  return makeTrash(trash.folder);
}

int topTrash(const std::string& top, CTrash& trash) {
  const std::string user = std::to_string(geteuid());
  const std::string start = top == "/" ? "/" : top + "/";
  trash.top = start;
  // The administrator's folder for all users counts only if nobody can replace what is in it.
  struct stat status {};
  const std::string shared = start + ".Trash";
  if (lstat(shared.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && (status.st_mode & S_ISVTX) != 0) {
    trash.folder = shared + "/" + user;
    if (makeTrash(trash.folder) == 0) return 0;
  }
  trash.folder = start + ".Trash-" + user;
  return makeTrash(trash.folder);
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

int writeFile(int file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = write(file, text.data(), text.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return errno;
    text.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
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
    const std::string note = trash.folder + "/info/" + name + ".trashinfo";
    const CFileHandle file(open(note.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!file && errno == EEXIST) continue;
    if (!file) return errno;
    int code = writeFile(file.get(), info);
    if (code == 0) code = moveEntry(path, trash.folder + "/files/" + name);
    if (code == 0) return 0;
    unlink(note.c_str());
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

  CTrash trash;
  const int code = homeTrash(trash);
  struct stat home {};
  if (code == 0 && stat(trash.folder.c_str(), &home) == 0 && home.st_dev == status.st_dev) {
    const int moved = moveInto(trash, entry);
    if (moved != EXDEV) return moved;
  }
  if (const int failed = topTrash(topFolderOf(entry, status.st_dev), trash)) return failed;
  return moveInto(trash, entry);
}

}  // namespace orlo::posix
