#include "foundation/posix/FileReplacement.h"

#include "foundation/posix/FileBytes.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <sys/stat.h>
#include <system_error>

namespace orlo::posix {

namespace {

[[noreturn]] void fail(const std::string& what, int code = errno) {
  throw std::system_error(code, std::generic_category(), what);
}

std::string resolved(const std::string& path) {
  const std::unique_ptr<char, void (*)(void*)> name(realpath(path.c_str(), nullptr), std::free);
  if (!name) fail(path);
  return name.get();
}

void copyOwnership(const std::string& from, int to) {
  struct stat wanted {};
  struct stat present {};
  if (stat(from.c_str(), &wanted) != 0 || fstat(to, &present) != 0) fail(from);
  const bool sameOwner = wanted.st_uid == present.st_uid && wanted.st_gid == present.st_gid;
  // Only root may give a file away. Whoever may write into the folder keeps the settings all the same.
  if (!sameOwner && fchown(to, wanted.st_uid, wanted.st_gid) != 0 && errno != EPERM) fail(from);
  if (fchmod(to, wanted.st_mode & 07777) != 0) fail(from);
}

}  // namespace

CFileHandle replaceFile(const std::string& path, std::string_view bytes) {
  const std::filesystem::path target = resolved(path);
  const std::string folder = target.parent_path().string();
  const std::string temporary = folder + "/." + target.filename().string() + ".new";
  // One that a dead process has left.
  if (unlink(temporary.c_str()) != 0 && errno != ENOENT) fail(temporary);
  CFileHandle file(open(temporary.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0600));
  if (!file) fail(temporary);
  try {
    if (const int code = writeAll(file.get(), bytes)) fail(temporary, code);
    copyOwnership(target.string(), file.get());
    if (fsync(file.get()) != 0) fail(temporary);
    if (rename(temporary.c_str(), target.c_str()) != 0) fail(temporary);
  } catch (...) {
    unlink(temporary.c_str());
    throw;
  }
  // The new name lasts when the folder is on the disk too. Where folders cannot be synchronised there is nothing to do.
  const CFileHandle folderHandle(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folderHandle) fsync(folderHandle.get());
  return file;
}

}  // namespace orlo::posix
