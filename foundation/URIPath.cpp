#include "foundation/URIPath.h"

#include "foundation/URIEscape.h"

namespace orlo::uri {

namespace {

constexpr const wchar_t* kPathCharacters = L";:,/@&=+$";

}  // namespace

bool isFile(const IURI& uri) {
  return !uri.hasScheme() || uri.getScheme().equalsIgnoreCase("file");
}

P<IURI> fromPath(const String& host, const String& path) {
  const String escaped = uriEscape(path, kPathCharacters);
  if (!host.isNull() || escaped.startsWith("/"))
    return createURI(u"file://" + (host.isNull() ? String(u"") : host) + escaped);
  // Else the first name would be taken for a scheme.
  const CStringPos slash = escaped.find("/");
  const String first = escaped.substring({}, slash).replace(":", "%3A");
  return createURI(slash.isEnd() ? first : first + escaped.substring(slash));
}

}  // namespace orlo::uri
