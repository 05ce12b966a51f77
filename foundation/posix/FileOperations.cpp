#include "foundation/posix/FileOperations.h"

#include "foundation/posix/FileBytes.h"
#include "foundation/posix/FileHandle.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>

namespace orlo::posix {

namespace {

int resultOf(int callResult) {
  return callResult == 0 ? 0 : errno;
}

// Whatever is opened, waiting for the other end of a pipe would be for ever.
int openFile(const std::string& path, int flags, mode_t mode, CFileHandle& file) {
  file = CFileHandle(open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, mode));
  return file ? 0 : errno;
}

int copyByReading(int source, int destination) {
  std::array<char, 1 << 16> block;
  for (;;) {
    const ssize_t count = read(source, block.data(), block.size());
    if (count == 0) return 0;
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno;
    if (const int code = writeAll(destination, {block.data(), static_cast<std::size_t>(count)})) return code;
  }
}

int copyContent(int source, int destination) {
  constexpr std::size_t kMost = std::size_t{1} << 30;
  for (;;) {
    const ssize_t count = copy_file_range(source, nullptr, destination, nullptr, kMost, 0);
    if (count > 0) continue;
    if (count < 0 && errno == EINTR) continue;
    if (count < 0 && (errno == ENOSPC || errno == EIO || errno == EDQUOT || errno == EFBIG)) return errno;
    // At the end, or at a file that can't be copied within the system. What is left is read, if anything is.
    return copyByReading(source, destination);
  }
}

int copyInto(int destination, int source, const struct stat& status) {
  if (ftruncate(destination, 0) != 0) return errno;
  if (const int code = copyContent(source, destination)) return code;
  // What a file system cannot keep is left out, and so is the right to act as the owner, who may be another one here.
  static_cast<void>(!fchmod(destination, status.st_mode & 0777));
  const timespec times[2] = {status.st_atim, status.st_mtim};
  static_cast<void>(!futimens(destination, times));
  return 0;
}

int readStatus(const std::string& path, struct stat& status) {
  return resultOf(stat(path.c_str(), &status));
}

int moveAcross(const std::string& source, const std::string& destination) {
  struct stat status {};
  if (lstat(source.c_str(), &status) != 0) return errno;
  if (!S_ISREG(status.st_mode)) return EXDEV;
  if (const int code = copyFile(source, destination, true)) return code;
  const int code = resultOf(unlink(source.c_str()));
  if (code != 0) unlink(destination.c_str());
  return code;
}

}  // namespace

bool fileExists(const std::string& path) {
  struct stat status {};
  return readStatus(path, status) == 0 && !S_ISDIR(status.st_mode);
}

bool folderExists(const std::string& path) {
  struct stat status {};
  return readStatus(path, status) == 0 && S_ISDIR(status.st_mode);
}

int deleteFile(const std::string& path) {
  return resultOf(unlink(path.c_str()));
}

int moveEntry(const std::string& source, const std::string& destination) {
  return moveEntryInto(source, AT_FDCWD, destination);
}

int moveEntryInto(const std::string& source, int folder, const std::string& destination) {
  if (renameat2(AT_FDCWD, source.c_str(), folder, destination.c_str(), RENAME_NOREPLACE) == 0) return 0;
  if (errno != EINVAL && errno != ENOSYS) return errno;
  // A file system that can't look and move at once.
  struct stat status {};
  if (fstatat(folder, destination.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0) return EEXIST;
  return resultOf(renameat(AT_FDCWD, source.c_str(), folder, destination.c_str()));
}

int moveFile(const std::string& source, const std::string& destination) {
  const int code = moveEntry(source, destination);
  return code == EXDEV ? moveAcross(source, destination) : code;
}

int copyFile(const std::string& source, const std::string& destination, bool failIfExists) {
  CFileHandle from;
  if (const int code = openFile(source, O_RDONLY, 0, from)) return code;
  struct stat status {};
  if (fstat(from.get(), &status) != 0) return errno;
  if (S_ISDIR(status.st_mode)) return EISDIR;
  if (!S_ISREG(status.st_mode)) return EINVAL;

  CFileHandle to;
  int code = openFile(destination, O_WRONLY | O_CREAT | O_EXCL, S_IRUSR | S_IWUSR, to);
  const bool isNew = code == 0;
  if (code == EEXIST && !failIfExists) code = openFile(destination, O_WRONLY, 0, to);
  if (code != 0) return code;
  struct stat target {};
  if (fstat(to.get(), &target) != 0) return errno;
  if (!S_ISREG(target.st_mode)) return EINVAL;
  if (target.st_dev == status.st_dev && target.st_ino == status.st_ino) return EEXIST;
  code = copyInto(to.get(), from.get(), status);
  if (code != 0) static_cast<void>(isNew ? unlink(destination.c_str()) : ftruncate(to.get(), 0));
  return code;
}

int readFileTimes(const std::string& path, CFileTimes& times) {
  struct statx status {};
  if (statx(AT_FDCWD, path.c_str(), 0, STATX_BASIC_STATS | STATX_BTIME, &status) != 0) return errno;
  const auto milliseconds = [](const statx_timestamp& time) {
    return static_cast<std::int64_t>(time.tv_sec) * 1000 + time.tv_nsec / 1000000;
  };
  times.accessed = milliseconds(status.stx_atime);
  times.modified = milliseconds(status.stx_mtime);
  times.created = (status.stx_mask & STATX_BTIME) != 0 ? milliseconds(status.stx_btime) : times.modified;
  return 0;
}

int readFileSize(const std::string& path, std::int64_t& size) {
  struct stat status {};
  if (const int code = readStatus(path, status)) return code;
  if (S_ISDIR(status.st_mode)) return EISDIR;
  size = status.st_size;
  return 0;
}

}  // namespace orlo::posix
