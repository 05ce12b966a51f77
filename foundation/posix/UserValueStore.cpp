#include "foundation/Error.h"
#include "foundation/ValueStore.h"
#include "foundation/posix/FileValueStore.h"
#include "foundation/posix/SpecialFolders.h"

namespace orlo {

P<IValueStore> openUserValueStore(const String& application) {
  const std::string name = toStdString(application);
  const bool isFolder = !name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos &&
                        name.find('\0') == std::string::npos;
  if (!isFolder) throw CInvalidArgError(nullptr, nullptr, "openUserValueStore", "The name cannot be one of a folder.");
  const std::string folder = posix::specialFolder(ESpecialFolder::appData);
  return makeObject<posix::CFileValueStore>(fromUTF8(folder + "/" + name + "/settings.conf"));
}

}  // namespace orlo
