#pragma once

#include "foundation/Enum.h"
#include "foundation/MessagePump.h"
#include "foundation/URI.h"
#include "foundation/WorkerManager.h"

#include <cstdint>
#include <vector>

namespace orlo {

/// Milliseconds since the start of 1970, in UTC.
struct CFileTimes {
  /// As modified where the file system keeps no such time.
  std::int64_t created = 0;
  std::int64_t accessed = 0;
  std::int64_t modified = 0;
};

struct CDrive {
  enum class Type { fixed, removable, remote, opticalDisc, memory };

  /// The folder where it is found.
  P<IURI> root;
  Type type = Type::fixed;
};

/// In pixels; 0 without a screen.
struct CScreenMetrics {
  int width = 0;
  int height = 0;
};

enum class ESpecialFolder {
  home,
  desktop,
  documents,
  music,
  pictures,
  videos,
  downloads,
  templates,
  publicShare,
  appData,       ///< settings, which may follow the user to other machines
  localAppData,  ///< data of programs on this machine
  cache,
};

/// The one door to the operating system, and the root of all workers. Files and folders may be used from any thread,
/// and so may all that is asked here; what comes from IMessagePump and the workers is for the thread that asked for the
/// system first. A location that is no path here counts as a file that isn't there. Folders that are answered end with
/// "/".
class ISystem : public virtual IWorkerManager, public virtual IWorker, public virtual IMessagePump {
public:
  virtual bool fileExists(const PC<IURI>& file) = 0;
  virtual bool folderExists(const PC<IURI>& folder) = 0;
  /// The operations on files and folders throw CError, and leave no part of a copy behind: a file that was to be
  /// replaced is empty then.
  ///
  /// Deletes what is read-only, too. From the recycle bin the user can take it back.
  virtual void deleteFile(const PC<IURI>& file, bool toRecycleBin) = 0;
  /// The destination must not exist. A file moves to other file systems as well, a folder doesn't.
  virtual void moveFile(const PC<IURI>& source, const PC<IURI>& destination) = 0;
  virtual void moveFolder(const PC<IURI>& source, const PC<IURI>& destination) = 0;
  /// With permissions to read, write and run, and the time of the last change.
  virtual void copyFile(const PC<IURI>& source, const PC<IURI>& destination, bool failIfExists) = 0;
  /// If not recursive, only an empty one, but the recycle bin takes every folder with all that is in it. Links are
  /// deleted, never what they lead to.
  virtual void deleteFolder(const PC<IURI>& folder, bool recursive, bool toRecycleBin) = 0;
  /// With parents, those that exist are no error, nor is the folder itself.
  virtual void createFolder(const PC<IURI>& folder, bool withParents) = 0;
  /// An empty file or folder of a new name, for this user alone. If the folder isn't there, CFileNotFoundError.
  virtual P<IURI> createUniqueFile(const PC<IURI>& folder, const String& prefix, const String& suffix) = 0;
  virtual P<IURI> createUniqueFolder(const PC<IURI>& folder, const String& prefix, const String& suffix) = 0;
  /// The IURI of all that is in the folder, by name; of folders with "/" at the end. Empty if the folder can't be read.
  virtual P<IEnum> enumFolder(const PC<IURI>& folder, bool files, bool folders) = 0;
  /// Throw CFileNotFoundError or CError.
  virtual CFileTimes getFileTimes(const PC<IURI>& file) = 0;
  virtual std::int64_t getFileSize(const PC<IURI>& file) = 0;
  /// Opens a location as a double click does. False if there is nothing there or nothing to open it with.
  virtual bool openWithShell(const PC<IURI>& uri) = 0;

  virtual P<IURI> getTempFolder() = 0;
  /// The folder of the operating system.
  virtual P<IURI> getWindowsFolder() = 0;
  /// Throws CFileNotFoundError if it has been deleted.
  virtual P<IURI> getCurrentFolder() = 0;
  /// The program that runs.
  virtual P<IURI> getModuleFile() = 0;
  virtual P<IURI> getSpecialFolder(ESpecialFolder id) = 0;
  virtual P<IURI> getAppDataFolder() = 0;
  virtual P<IURI> getLocalAppDataFolder() = 0;
  virtual P<IURI> getDesktopFolder() = 0;
  virtual P<IURI> getDocumentsFolder() = 0;

  virtual String getUserName() = 0;
  virtual String getOSName() = 0;
  /// The name, and the release behind it.
  virtual String getOSVersion() = 0;
  /// Bytes.
  virtual std::int64_t getPhysicalMemory() = 0;
  virtual int getProcessorCount() = 0;
  virtual CScreenMetrics getScreenMetrics() = 0;
  virtual std::vector<CDrive> getDrives() = 0;
  /// 65536 times the major version of a shared library, plus the minor one. 0 if there is no such library, or if it
  /// doesn't say.
  virtual std::int32_t getDllVersion(const String& name) = 0;

  /// Objects of a type that others ask for, from any thread. An object may take the place of an earlier one.
  virtual void addSubSystem(const String& type, P<IBase> object) = 0;
  /// Throws CNoSuchObjectError.
  virtual P<IBase> getSubSystem(const String& type) = 0;

  /// What ends a line in texts that are written for others, the same on all platforms.
  virtual String getLineBreak() = 0;
};

/// Made by whoever asks first, whose thread it then belongs to. Throws CError if that fails.
P<ISystem>& getSystem();

}  // namespace orlo
