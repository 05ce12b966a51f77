#include "foundation/posix/System.h"

#include "foundation/Error.h"
#include "foundation/Singleton.h"
#include "foundation/StringLocalizer.h"
#include "foundation/posix/LibraryVersion.h"
#include "foundation/posix/MachineInfo.h"
#include "foundation/posix/MountTable.h"
#include "foundation/posix/PathText.h"
#include "foundation/posix/SpecialFolders.h"

namespace orlo {

namespace posix {

CSystem::CSystem() : moduleFile_(uriOfPath(programFile())) {}

P<IURI> CSystem::getTempFolder() {
  return uriOfFolder(tempFolder());
}

P<IURI> CSystem::getWindowsFolder() {
  return uriOfFolder("/usr");
}

P<IURI> CSystem::getCurrentFolder() {
  const std::string folder = currentFolder();
  if (folder.empty()) throw CFileNotFoundError();
  return uriOfFolder(folder);
}

P<IURI> CSystem::getSpecialFolder(ESpecialFolder id) {
  return uriOfFolder(specialFolder(id));
}

String CSystem::getUserName() {
  return textOfPath(userName());
}

String CSystem::getOSName() {
  return textOfPath(osName());
}

String CSystem::getOSVersion() {
  return textOfPath(osVersion());
}

std::int64_t CSystem::getPhysicalMemory() {
  return physicalMemory();
}

int CSystem::getProcessorCount() {
  return processorCount();
}

CScreenMetrics CSystem::getScreenMetrics() {
  return screenMetrics();
}

std::vector<CDrive> CSystem::getDrives() {
  std::vector<CDrive> drives;
  for (const CMount& mount : readMountTable())
    if (isDrive(mount)) drives.push_back({uriOfFolder(mount.folder), driveTypeOf(mount)});
  return drives;
}

std::int32_t CSystem::getDllVersion(const String& name) {
  return name.isEmpty() ? 0 : libraryVersion(toStdString(name));
}

void CSystem::addSubSystem(const String& type, P<IBase> object) {
  // Ends when the lock is free again.
  P<IArray> replaced;
  CMutexLock lock(mutex_);
  replaced = subSystems_.getPartition(type);
  subSystems_.removePartition(type);
  subSystems_.add(type, std::move(object));
}

P<IBase> CSystem::getSubSystem(const String& type) {
  CMutexLock lock(mutex_);
  const P<IArray> found = subSystems_.getPartition(type);
  if (found && !found->isEmpty()) return found->get(0);
  const String message = localize("orlo.win32.CSystem.NoSuchSubSystem", "No sub system of type %TYPE% was found.");
  throw CNoSuchObjectError(toWide(message).replace("%TYPE%", type));
}

}  // namespace posix

P<ISystem>& getSystem() {
  static TSingleton<ISystem> singleton;
  return singleton.get([] { return P<ISystem>(makeObject<posix::CSystem>()); });
}

}  // namespace orlo
