#include "foundation/URIPath.h"

#include "foundation/URIEscape.h"

namespace orlo::uri {

bool isFile(const IURI& uri) {
  return !uri.hasScheme() || uri.getScheme().equalsIgnoreCase("file");
}

bool isLocalFile(const IURI& uri) {
  const String host = uri.getHost();
  return isFile(uri) && (host.isEmpty() || host.equalsIgnoreCase("localhost"));
}

P<IURI> fromPath(const String& host, const String& path) {
  const String escaped = uriEscape(path, kPathCharacters);
  if (!host.isNull() || escaped.startsWith("/"))
    return createURI(u"file://" + (host.isNull() ? String(u"") : host) + escaped);
  // A name with a colon that came to stand in front would be taken for a scheme.
  return createURI(escaped.replace(":", "%3A"));
}

}  // namespace orlo::uri
