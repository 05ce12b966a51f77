#include "foundation/Error.h"
#include "foundation/StringLocalizer.h"
#include "foundation/URIPath.h"
#include "foundation/posix/FileOperations.h"
#include "foundation/posix/FolderOperations.h"
#include "foundation/posix/PathText.h"
#include "foundation/posix/ShellOpen.h"
#include "foundation/posix/System.h"
#include "foundation/posix/SystemError.h"
#include "foundation/posix/Trash.h"
#include "foundation/posix/UniqueName.h"

namespace orlo::posix {

namespace {

/// Throws for a code other than 0. Messages are filled in UTF-16, so that no character of a name is lost.
void check(int code, const char* key, const char* text, const char* placeholder, const PC<IURI>& uri) {
  if (code == 0) return;
  throw CError(toWide(localize(key, text)).replace("%MSG%", systemText(code)).replace(placeholder, nameOf(uri)));
}

/// A name may hold what looks like a placeholder, so none is looked for in what has been filled in.
String filled(const String& message, const String& source, const String& destination) {
  const CStringPos place = message.find("%DEST%");
  if (place.isEnd()) return message.replace("%SRC%", source);
  const String rest = message.substring(place);
  return message.substring({}, place).replace("%SRC%", source) + destination +
         filled(rest.substring(rest.positionAt(6)), source, destination);
}

void check(int code, const char* key, const char* text, const PC<IURI>& source, const PC<IURI>& destination) {
  if (code == 0) return;
  throw CError(
      filled(toWide(localize(key, text)).replace("%MSG%", systemText(code)), nameOf(source), nameOf(destination)));
}

void check(int code, const PC<IURI>& uri) {
  if (code != 0) throwSystemError(code, nullptr, textOfPath(localPath(uri)));
}

}  // namespace

bool CSystem::fileExists(const PC<IURI>& file) {
  return posix::fileExists(localPath(file));
}

bool CSystem::folderExists(const PC<IURI>& folder) {
  return posix::folderExists(localPath(folder));
}

void CSystem::deleteFile(const PC<IURI>& file, bool toRecycleBin) {
  const std::string path = localPath(file);
  int code = 0;
  if (!toRecycleBin)
    code = posix::deleteFile(path);
  else
    code = posix::folderExists(path) && !isLink(path) ? EISDIR : moveToTrash(path);
  check(code, "orlo.CSystem.DeleteFileFailed", "Error deleting the file '%FILE%' (%MSG%).", "%FILE%", file);
}

void CSystem::moveFile(const PC<IURI>& source, const PC<IURI>& destination) {
  check(posix::moveFile(localPath(source), localPath(destination)), "orlo.CSystem.MoveFileFailed",
        "Error moving file '%SRC%' to '%DEST%'.", source, destination);
}

void CSystem::moveFolder(const PC<IURI>& source, const PC<IURI>& destination) {
  check(moveEntry(localFolderPath(source), localFolderPath(destination)), "orlo.CSystem.MoveFolderFailed",
        "Error moving folder '%SRC%' to '%DEST%'.", source, destination);
}

void CSystem::copyFile(const PC<IURI>& source, const PC<IURI>& destination, bool failIfExists) {
  check(posix::copyFile(localPath(source), localPath(destination), failIfExists), "orlo.CSystem.CopyFileFailed",
        "Error copying file '%SRC%' to '%DEST%' (%MSG%).", source, destination);
}

void CSystem::deleteFolder(const PC<IURI>& folder, bool recursive, bool toRecycleBin) {
  const std::string path = localFolderPath(folder);
  int code = 0;
  if (toRecycleBin)
    code = posix::folderExists(path) ? moveToTrash(path) : posix::fileExists(path) ? ENOTDIR : ENOENT;
  else
    code = recursive ? deleteFolderTree(path) : posix::deleteFolder(path);
  check(code, "orlo.CSystem.DeleteFolderFailed", "Error deleting the folder '%FOLDER%' (%MSG%).", "%FOLDER%", folder);
}

void CSystem::createFolder(const PC<IURI>& folder, bool withParents) {
  const std::string path = localFolderPath(folder);
  check(withParents ? createFolders(path) : posix::createFolder(path), "orlo.CSystem.CreateFolderFailed",
        "Error creating the folder '%DIR%' (%MSG%).", "%DIR%", folder);
}

P<IURI> CSystem::createUniqueFile(const PC<IURI>& folder, const String& prefix, const String& suffix) {
  std::string path;
  const int code = posix::createUniqueFile(localFolderPath(folder), prefix, suffix, *getRandomNumberGenerator(), path);
  if (code == 0) return uriOfPath(path);
  throwSystemError(code,
                   localize("orlo.CSystem.CreateUniqueFileFailed", "Error creating unique file name.") + " %ERRORDESC%",
                   textOfPath(path));
}

P<IURI> CSystem::createUniqueFolder(const PC<IURI>& folder, const String& prefix, const String& suffix) {
  std::string path;
  const int code =
      posix::createUniqueFolder(localFolderPath(folder), prefix, suffix, *getRandomNumberGenerator(), path);
  if (code == 0) return uriOfPath(path);
  throwSystemError(
      code, localize("orlo.CSystem.CreateUniqueFolderFailed", "Error creating unique folder name.") + " %ERRORDESC%",
      textOfPath(path));
}

P<IEnum> CSystem::enumFolder(const PC<IURI>& folder, bool files, bool folders) {
  const P<CArray> found = makeObject<CArray>();
  const std::string path = localFolderPath(folder);
  for (const CFolderEntry& entry : readFolder(path)) {
    const std::string place = path + (path.ends_with('/') ? "" : "/") + entry.name;
    if (entry.isFolder ? folders : files) found->add(entry.isFolder ? uriOfFolder(place) : uriOfPath(place));
  }
  return found->getEnum();
}

CFileTimes CSystem::getFileTimes(const PC<IURI>& file) {
  CFileTimes times;
  check(readFileTimes(localPath(file), times), file);
  return times;
}

std::int64_t CSystem::getFileSize(const PC<IURI>& file) {
  std::int64_t size = 0;
  check(readFileSize(localPath(file), size), file);
  return size;
}

bool CSystem::openWithShell(const PC<IURI>& uri) {
  if (!uri) return false;
  if (!uri::isFile(*uri)) {
    // Else the program would take it for an option.
    const bool isLocation = !uri->getDescription().startsWith("-");
    return isLocation && openWithDesktop(toStdString(uri->getDescription()));
  }
  std::string path = localPath(uri);
  if (!posix::fileExists(path) && !posix::folderExists(path)) return false;
  if (!path.starts_with('/')) path = "./" + path;
  return openWithDesktop(path);
}

}  // namespace orlo::posix
