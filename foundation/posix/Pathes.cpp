#include "foundation/posix/Pathes.h"

#include "foundation/Singleton.h"
#include "foundation/StandardUTF8.h"
#include "foundation/URIEscape.h"
#include "foundation/URIPath.h"

#include <algorithm>
#include <string>

namespace orlo {

namespace posix {

namespace {

/// The bytes that the raw path of a URI stands for. A zero, which no path can hold, stays an escape.
std::string unescapedBytes(std::u16string_view path) {
  std::string bytes;
  bytes.reserve(path.size());
  for (std::size_t pos = 0; pos < path.size();) {
    const int escaped = uri::escapedByteAt(path, pos);
    if (escaped > 0) {
      bytes += static_cast<char>(escaped);
      pos += 3;
    } else if (path[pos] == 0) {
      bytes += "%00";
      ++pos;
    } else {
      pos += uri::appendUTF8(bytes, path.substr(pos));
    }
  }
  return bytes;
}

/// A path on another machine is no path here.
bool isLocal(const IURI& uri) {
  const String host = uri.getHost();
  return uri::isFile(uri) && (host.isEmpty() || host.equalsIgnoreCase("localhost"));
}

}  // namespace

String CPathes::uriToPath(const PC<IURI>& uri) {
  if (!uri) return String();
  if (!isLocal(*uri)) return uri->getDescription();
  const String path = uri::toWideText(uri->getRawPath());
  return fromUTF8(unescapedBytes(uri::unitsOf(path)));
}

P<IURI> CPathes::pathToURI(const String& path) {
  // However many slashes a path begins with, it begins at the root. What is no UTF-8 is bytes, not characters.
  std::string bytes = toStdString(path);
  if (bytes.starts_with("//")) bytes.erase(0, std::min(bytes.find_first_not_of('/'), bytes.size()) - 1);
  return uri::fromPath(nullptr, fromUTF8(bytes));
}

String CPathes::toFileURI(const PC<IURI>& uri) {
  std::string path = toStdString(uriToPath(uri));
  if (path.starts_with('/')) path.erase(0, 1);
  return fromUTF8("file:///" + path);
}

}  // namespace posix

P<IPathes>& getPathes() {
  static TSingleton<IPathes> singleton;
  return singleton.get([] { return makeObject<posix::CPathes>(); });
}

}  // namespace orlo
