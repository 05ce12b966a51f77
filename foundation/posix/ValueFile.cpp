#include "foundation/posix/ValueFile.h"

#include "foundation/Error.h"
#include "foundation/StringLocalizer.h"
#include "foundation/posix/FileBytes.h"
#include "foundation/posix/FileReplacement.h"
#include "foundation/posix/FolderOperations.h"
#include "foundation/posix/StoredText.h"
#include "foundation/posix/SystemError.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <system_error>

namespace orlo::posix {

namespace {

bool isSameFile(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

bool isUnchanged(const struct stat& a, const struct stat& b) {
  return isSameFile(a, b) && a.st_size == b.st_size && a.st_mtim.tv_sec == b.st_mtim.tv_sec &&
         a.st_mtim.tv_nsec == b.st_mtim.tv_nsec && a.st_ctim.tv_sec == b.st_ctim.tv_sec &&
         a.st_ctim.tv_nsec == b.st_ctim.tv_nsec;
}

/// Gives the lock of a file back. Closing would not do as long as somebody has a copy of the handle.
class CUnlockAtEnd {
public:
  explicit CUnlockAtEnd(const CFileHandle& file) : file_(file) {}
  ~CUnlockAtEnd() { flock(file_.get(), LOCK_UN); }
  CUnlockAtEnd(const CUnlockAtEnd&) = delete;
  CUnlockAtEnd& operator=(const CUnlockAtEnd&) = delete;

private:
  const CFileHandle& file_;
};

}  // namespace

CValueFile::CValueFile(const String& path)
    : path_(std::filesystem::absolute(toStdString(path)).string()),
      name_(fromStoredText(path_)),
      mutex_(getMutexFactory()->createMutex()) {}

void CValueFile::read(const std::function<void(const CValueDocument&)>& action) {
  const CMutexLock lock(mutex_);
  // Nothing that blocks when it is opened, such as a pipe, is a settings file.
  CFileHandle file(open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (file)
    refresh(std::move(file));
  else if (errno == ENOENT)
    forget();
  else
    failReading(errno);
  action(document_);
}

void CValueFile::change(const std::function<void(CValueDocument&)>& action) {
  const CMutexLock lock(mutex_);
  const CFileHandle locked = lockFile();
  const CUnlockAtEnd unlock(locked);
  refresh(CFileHandle(fcntl(locked.get(), F_DUPFD_CLOEXEC, 0)));
  const std::string before = document_.getText();
  try {
    action(document_);
    const std::string after = document_.getText();
    if (after == before) return;
    if (after.size() > CValueDocument::kMostBytes)
      throw CDocumentLimit{"it is larger than " + std::to_string(CValueDocument::kMostBytes) + " bytes"};
    CFileHandle written = replace(after);
    if (fstat(written.get(), &sourceState_) != 0) failWriting(errno);
    source_ = std::move(written);
  } catch (const CDocumentLimit& limit) {
    forget();
    throw CError(toWide(localize("orlo.posix.CFileValueStore.LimitReached",
                                 "The settings file '%FILE%' cannot take this: %MSG%."))
                     .replace("%FILE%", name_)
                     .replace("%MSG%", fromStoredText(limit.reason)));
  } catch (...) {
    forget();
    throw;
  }
}

void CValueFile::forget() {
  document_ = CValueDocument();
  source_ = CFileHandle();
}

void CValueFile::refresh(CFileHandle file) {
  struct stat state {};
  if (!file || fstat(file.get(), &state) != 0) failReading(errno);
  if (source_ && isUnchanged(state, sourceState_)) return;
  forget();
  if (!S_ISREG(state.st_mode)) failReading(S_ISDIR(state.st_mode) ? EISDIR : EINVAL);
  const std::string text = readText(file);
  try {
    document_ = CValueDocument(text);
  } catch (const CDocumentError& error) {
    failParsing(error.line, error.reason);
  }
  source_ = std::move(file);
  sourceState_ = state;
}

std::string CValueFile::readText(const CFileHandle& file) const {
  try {
    return readAll(file.get(), CValueDocument::kMostBytes);
  } catch (const std::system_error& error) {
    if (error.code().value() != EFBIG) failReading(error.code().value());
  }
  throw CError(
      toWide(localize("orlo.posix.CFileValueStore.TooLarge", "The settings file '%FILE%' is larger than %SIZE% bytes."))
          .replace("%FILE%", name_)
          .replace("%SIZE%", fromUTF8(std::to_string(CValueDocument::kMostBytes))));
}

CFileHandle CValueFile::openForChange() const {
  constexpr int kFlags = O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK;
  CFileHandle file(open(path_.c_str(), kFlags, 0666));
  if (file || errno != ENOENT) return file;
  if (const int code = createFolders(std::filesystem::path(path_).parent_path().string(), 0700)) failWriting(code);
  return CFileHandle(open(path_.c_str(), kFlags, 0666));
}

CFileHandle CValueFile::lockFile() const {
  while (true) {
    CFileHandle file = openForChange();
    if (!file) failWriting(errno);
    while (flock(file.get(), LOCK_EX) != 0)
      if (errno != EINTR) failWriting(errno);
    // Whoever held the lock may have put another file in this one's place.
    struct stat locked {};
    struct stat present {};
    if (fstat(file.get(), &locked) != 0) failWriting(errno);
    if (stat(path_.c_str(), &present) == 0 && isSameFile(locked, present)) return file;
  }
}

CFileHandle CValueFile::replace(const std::string& text) const {
  try {
    return replaceFile(path_, text);
  } catch (const std::system_error& error) {
    failWriting(error.code().value());
  }
}

void CValueFile::fail(int code, const char* key, const char* text) const {
  throwSystemError(code, toWide(localize(key, text)).replace("%FILE%", name_), fromUTF8(path_));
}

void CValueFile::failReading(int code) const {
  fail(code, "orlo.posix.CFileValueStore.ReadFailed", "Error reading the settings file '%FILE%' (%ERRORDESC%).");
}

void CValueFile::failWriting(int code) const {
  fail(code, "orlo.posix.CFileValueStore.WriteFailed", "Error writing the settings file '%FILE%' (%ERRORDESC%).");
}

void CValueFile::failParsing(int line, const std::string& reason) const {
  throw CParseError(toWide(localize("orlo.posix.CFileValueStore.Damaged",
                                    "The settings file '%FILE%' is damaged in line %LINE%: %MSG%."))
                        .replace("%FILE%", name_)
                        .replace("%LINE%", fromUTF8(std::to_string(line)))
                        .replace("%MSG%", fromStoredText(reason)));
}

}  // namespace orlo::posix
