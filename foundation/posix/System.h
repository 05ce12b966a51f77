#pragma once

#include "foundation/Mutex.h"
#include "foundation/PartitionedBucket.h"
#include "foundation/Pathes.h"
#include "foundation/System.h"
#include "foundation/posix/RunningSystem.h"

namespace orlo::posix {

class CSystem : public CRunningSystem, public ISystem {
public:
  /// Throws CError.
  CSystem();

  bool fileExists(const PC<IURI>& file) override;
  bool folderExists(const PC<IURI>& folder) override;
  void deleteFile(const PC<IURI>& file, bool toRecycleBin) override;
  void moveFile(const PC<IURI>& source, const PC<IURI>& destination) override;
  void moveFolder(const PC<IURI>& source, const PC<IURI>& destination) override;
  void copyFile(const PC<IURI>& source, const PC<IURI>& destination, bool failIfExists) override;
  void deleteFolder(const PC<IURI>& folder, bool recursive, bool toRecycleBin) override;
  void createFolder(const PC<IURI>& folder, bool withParents) override;
  P<IURI> createUniqueFile(const PC<IURI>& folder, const String& prefix, const String& suffix) override;
  P<IURI> createUniqueFolder(const PC<IURI>& folder, const String& prefix, const String& suffix) override;
  P<IEnum> enumFolder(const PC<IURI>& folder, bool files, bool folders) override;
  CFileTimes getFileTimes(const PC<IURI>& file) override;
  std::int64_t getFileSize(const PC<IURI>& file) override;
  bool openWithShell(const PC<IURI>& uri) override;

  P<IURI> getTempFolder() override;
  P<IURI> getWindowsFolder() override;
  P<IURI> getCurrentFolder() override;
  P<IURI> getModuleFile() override { return moduleFile_; }
  P<IURI> getSpecialFolder(ESpecialFolder id) override;
  P<IURI> getAppDataFolder() override { return getSpecialFolder(ESpecialFolder::appData); }
  P<IURI> getLocalAppDataFolder() override { return getSpecialFolder(ESpecialFolder::localAppData); }
  P<IURI> getDesktopFolder() override { return getSpecialFolder(ESpecialFolder::desktop); }
  P<IURI> getDocumentsFolder() override { return getSpecialFolder(ESpecialFolder::documents); }

  String getUserName() override;
  String getOSName() override;
  String getOSVersion() override;
  std::int64_t getPhysicalMemory() override;
  int getProcessorCount() override;
  CScreenMetrics getScreenMetrics() override;
  std::vector<CDrive> getDrives() override;
  std::int32_t getDllVersion(const String& name) override;

  void addSubSystem(const String& type, P<IBase> object) override;
  P<IBase> getSubSystem(const String& type) override;

  String getLineBreak() override { return lineBreak_; }

private:
  P<IMutex> mutex_ = getMutexFactory()->createMutex();
  CPartitionedBucket subSystems_;
  const String lineBreak_ = "\r\n";
  P<IURI> moduleFile_;
};

}  // namespace orlo::posix
