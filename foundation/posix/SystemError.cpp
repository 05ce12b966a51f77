#include "foundation/posix/SystemError.h"

#include "foundation/Error.h"
#include "foundation/Pathes.h"

#include <cerrno>
#include <cstring>

namespace orlo {

String systemText(int code) {
  const char* text = strerrordesc_np(code);
  return text ? text : "";
}

void throwSystemError(int code, const String& message, const String& path) {
  if (code == ENOENT || code == ENOTDIR) {
    if (path.isEmpty()) throw CFileNotFoundError();
    throw CFileNotFoundError(getPathes()->pathToURI(path));
  }
  if (message.isNull()) throw CError(systemText(code));
  throw CError(message.replace("%ERRORDESC%", systemText(code)));
}

}  // namespace orlo
