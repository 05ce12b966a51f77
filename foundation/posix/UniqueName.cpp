#include "foundation/posix/UniqueName.h"

#include "foundation/StringFormat.h"
#include "foundation/posix/FileHandle.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace orlo::posix {

namespace {

/// create(path): 0 or an errno value.
template <class Create>
int createUnique(const std::string& folder, const String& format, const String& prefix, const String& suffix,
                 CMersenneTwisterRandomNumberGenerator& random, std::string& path, Create create) {
  if (folder.empty()) return ENOENT;
  // The system would take the name to end there, before the number.
  if (toStdString(prefix).find('\0') != std::string::npos) return EINVAL;
  for (;;) {
    const String name = CStringFormat(format).push(prefix).push(random.getNext()).push(suffix).getString();
    path = folder + (folder.ends_with('/') ? "" : "/") + toStdString(name);
    const int code = create(path.c_str());
    if (code != EEXIST) return code;
  }
}

}  // namespace

int createUniqueFile(const std::string& folder, const String& prefix, const String& suffix,
                     CMersenneTwisterRandomNumberGenerator& random, std::string& path) {
  return createUnique(folder, "%s%08X%s", prefix, suffix, random, path, [](const char* name) {
    const CFileHandle file(open(name, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR));
    return file ? 0 : errno;
  });
}

int createUniqueFolder(const std::string& folder, const String& prefix, const String& suffix,
                       CMersenneTwisterRandomNumberGenerator& random, std::string& path) {
  return createUnique(folder, "%s%08X%s/", prefix, suffix, random, path,
                      [](const char* name) { return mkdir(name, S_IRWXU) == 0 ? 0 : errno; });
}

}  // namespace orlo::posix
