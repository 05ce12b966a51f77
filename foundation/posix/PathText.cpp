#include "foundation/posix/PathText.h"

#include "foundation/Pathes.h"
#include "foundation/StandardUTF8.h"
#include "foundation/URIEscape.h"
#include "foundation/URIPath.h"

namespace orlo::posix {

String textOfPath(const std::string& path) {
  const String bytes = fromUTF8(path);
  const auto* data = reinterpret_cast<const unsigned char*>(path.data());
  const int size = static_cast<int>(path.size());
  int count = 0;
  for (int pos = 0; pos < size; ++count) {
    char32_t codePoint = 0;
    pos = readStandardUTF8(codePoint, data, size, pos);
    if (pos < 0) return bytes;
  }
  return bytes.length() == count ? bytes : uri::toWideText(bytes);
}

String nameOf(const PC<IURI>& uri) {
  if (!uri) return String();
  const std::string path = localPath(uri);
  return path.empty() ? uri->getDescription() : uri::toWideText(fromUTF8(path));
}

std::string localPath(const PC<IURI>& uri) {
  return uri && uri::isLocalFile(*uri) ? toStdString(getPathes()->uriToPath(uri)) : std::string();
}

std::string localFolderPath(const PC<IURI>& uri) {
  std::string path = localPath(uri);
  while (path.size() > 1 && path.ends_with('/')) path.pop_back();
  return path;
}

P<IURI> uriOfPath(const std::string& path) {
  return getPathes()->pathToURI(fromUTF8(path));
}

P<IURI> uriOfFolder(std::string path) {
  if (!path.ends_with('/')) path += '/';
  return uriOfPath(path);
}

}  // namespace orlo::posix
