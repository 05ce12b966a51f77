#pragma once

#include "foundation/Mutex.h"
#include "foundation/Object.h"
#include "foundation/String.h"
#include "foundation/posix/FileHandle.h"
#include "foundation/posix/ValueDocument.h"

#include <functional>
#include <string>
#include <sys/stat.h>

namespace orlo::posix {

/// A settings file that several processes use. It is replaced as a whole, by a file that is complete and on the disk,
/// so that a reader never sees a part and a process that dies leaves what was there. A file that isn't understood is
/// never replaced. All methods may be called from any thread; they throw CError that names the file, CParseError with
/// the line for what is not understood.
class CValueFile : public CObject {
public:
  /// The file need not be there.
  explicit CValueFile(const String& path);

  /// Calls action with what the file holds now. Nothing is read if it has not changed since the last time.
  void read(const std::function<void(const CValueDocument&)>& action);
  /// The same, and writes what action has changed. Nobody else writes in between. If action throws, nothing is written.
  void change(const std::function<void(CValueDocument&)>& action);

private:
  void forget();
  void refresh(CFileHandle file);
  std::string readText(const CFileHandle& file) const;
  CFileHandle openForChange() const;
  CFileHandle lockFile() const;
  CFileHandle replace(const std::string& text) const;
  [[noreturn]] void fail(int code, const char* key, const char* text) const;
  [[noreturn]] void failReading(int code) const;
  [[noreturn]] void failWriting(int code) const;
  [[noreturn]] void failParsing(int line, const std::string& reason) const;

  std::string path_;
  /// The path in messages.
  String name_;
  P<IMutex> mutex_;
  /// What was read, and from which file. That file is kept open, so that no other one can be taken for it.
  CValueDocument document_;
  CFileHandle source_;
  struct stat sourceState_ {};
};

}  // namespace orlo::posix
