#include "foundation/WindowsPaths.h"

#include "foundation/Error.h"
#include "foundation/URIEscape.h"
#include "foundation/URIPath.h"

namespace orlo::windows {

namespace {

constexpr int kShortPathEnd = 240;
constexpr const char16_t* kLongPrefix = u"\\\\?\\";
constexpr const char16_t* kLongHostPrefix = u"\\\\?\\UNC\\";

String behind(const String& text, int count) {
  return text.substring(text.positionAt(count));
}

String longPath(const String& path, bool knowsLongPaths) {
  if (path.length() < kShortPathEnd) return path;
  if (knowsLongPaths && path.startsWith("\\\\")) return kLongHostPrefix + behind(path, 2);
  if (knowsLongPaths && path.charAt(1) == U':') return kLongPrefix + path;
  throw CError(u"Error: Windows path is longer than MAX_PATH and the limit cannot be circumvented (path='" + path +
               "'.");
}

}  // namespace

String uriToPath(const PC<IURI>& uri, bool knowsLongPaths) {
  if (!uri) return String();
  if (!uri::isFile(*uri)) return uri->getDescription();
  String path = toWide(uri->getPath());
  if (path.startsWith("/")) path = behind(path, 1);
  if (!uri->getHost().isEmpty()) path = u"\\\\" + uri->getHost() + "\\" + path;
  return longPath(path.replace("/", "\\"), knowsLongPaths);
}

P<IURI> pathToURI(const String& path) {
  String text = uri::toWideText(path);
  if (text.startsWith(kLongHostPrefix))
    text = u"\\\\" + behind(text, 8);
  else if (text.startsWith(kLongPrefix))
    text = behind(text, 4);
  text = text.replace("\\", "/");
  if (text.startsWith("//")) {
    const String rest = behind(text, 2);
    const CStringPos slash = rest.find("/");
    return uri::fromPath(rest.substring({}, slash), slash.isEnd() ? String(u"") : rest.substring(slash));
  }
  if (text.charAt(1) == U':') return uri::fromPath(nullptr, u"/" + text);
  return uri::fromPath(nullptr, text);
}

String toFileURI(const PC<IURI>& uri, bool knowsLongPaths) {
  return u"file:///" + uriToPath(uri, knowsLongPaths).replace("\\", "/");
}

}  // namespace orlo::windows
