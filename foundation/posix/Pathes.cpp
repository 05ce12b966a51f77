#include "foundation/posix/Pathes.h"

#include "foundation/Singleton.h"
#include "foundation/URIEscape.h"
#include "foundation/URIPath.h"
#include "foundation/posix/PathText.h"

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

}  // namespace

String CPathes::uriToPath(const PC<IURI>& uri) {
  if (!uri) return String();
  if (!uri::isLocalFile(*uri)) return uri->getDescription();
  const String path = uri::toWideText(uri->getRawPath());
  return textOfPath(unescapedBytes(uri::unitsOf(path)));
}

P<IURI> CPathes::pathToURI(const String& path) {
  // Several slashes are one, which they are not to a URI.
  std::string bytes = toStdString(path);
  const auto end = std::unique(bytes.begin(), bytes.end(), [](char a, char b) { return a == '/' && b == '/'; });
  bytes.erase(end, bytes.end());
  return uri::fromPath(nullptr, fromUTF8(bytes));
}

String CPathes::toFileURI(const PC<IURI>& uri) {
  std::string path = toStdString(uriToPath(uri));
  if (path.starts_with('/')) path.erase(0, 1);
  return textOfPath("file:///" + path);
}

}  // namespace posix

P<IPathes>& getPathes() {
  static TSingleton<IPathes> singleton;
  return singleton.get([] { return makeObject<posix::CPathes>(); });
}

}  // namespace orlo
