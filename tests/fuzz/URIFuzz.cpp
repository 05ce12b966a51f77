// Reads any bytes as two URIs, one byte 0 between them, and checks that all that can be asked of them tells the same
// story.

#include "foundation/Error.h"
#include "foundation/Pathes.h"
#include "foundation/URIEscape.h"
#include "foundation/WindowsPaths.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

using namespace orlo;

namespace {

#define CHECK(condition)                                                   \
  do {                                                                     \
    if (!(condition)) {                                                    \
      std::fprintf(stderr, "%s:%d: %s\n", __FILE__, __LINE__, #condition); \
      std::abort();                                                        \
    }                                                                      \
  } while (false)

P<IURI> parsed(const String& text) {
  try {
    return createURI(text);
  } catch (const CParseError&) {
    return nullptr;
  }
}

void checkComponents(const IURI& uri) {
  CHECK(uri.isAbsolute() == uri.hasScheme());
  CHECK(uri.hasSchemeSpecificPart());
  CHECK(uri.hasHost() == uri.hasAuthority());
  CHECK(uri.isHierarchical() || !(uri.hasPath() || uri.hasAuthority() || uri.hasQuery() || uri.hasFragment()));
  CHECK(!uri.hasFileName() || uri.getRawFileName().find("/").isEnd());
  CHECK(uri.hasBaseName() == uri.hasFileName());
  if (uri.hasPath()) {
    const String folder = uri.hasFolder() ? uri.getRawFolder() : String(u"");
    CHECK(folder + (uri.hasFileName() ? uri.getRawFileName() : String(u"")) == uri.getRawPath());
  }
  if (uri.hasExtension()) CHECK(uri.getRawBaseName() + "." + uri.getRawExtension() == uri.getRawFileName());
  CHECK(uriUnescape(uri.getRawPath()) == uri.getPath());
  CHECK(uriUnescape(uri.getRawQuery()) == uri.getQuery());
}

void checkPaths(const P<IURI>& uri) {
  const std::string path = toStdString(getPathes()->uriToPath(uri));
  const P<IURI> fromPath = getPathes()->pathToURI(fromUTF8(path));
  CHECK(path.find('\0') == std::string::npos || !(uri->getScheme().equalsIgnoreCase("file") || !uri->hasScheme()));
  const std::string again = toStdString(getPathes()->uriToPath(fromPath));
  CHECK(getPathes()->pathToURI(fromUTF8(again))->getDescription() == fromPath->getDescription());
  try {
    windows::pathToURI(windows::uriToPath(uri, true));
  } catch (const CError&) {
    // A path that is too long, or a host with a port that is no number.
  }
}

void check(const P<IURI>& uri, const P<IURI>& base) {
  checkComponents(*uri);
  checkPaths(uri);
  CHECK(parsed(uri->getDescription()) || uri->getDescription().find("//").index >= 0);
  if (const P<IURI> folder = uri->getFolderURI()) checkComponents(*folder);
  if (const P<IURI> parent = uri->getParentURI()) checkComponents(*parent);
  const P<IURI> resolved = uri->resolve(base);
  checkComponents(*resolved);
  CHECK(!base->isAbsolute() || resolved->isAbsolute());
  const P<IURI> reference = resolved->makeRelative(base);
  checkComponents(*reference);
  CHECK(reference->resolve(base)->getDescription() == resolved->getDescription());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const std::size_t zero = std::min(bytes.find('\0'), size);
  const String text = fromUTF8(bytes.substr(0, zero));
  CHECK(uriUnescape(uriEscape(text, L"")).length() > 0 || zero == 0);
  const P<IURI> uri = parsed(text);
  const P<IURI> base = parsed(fromUTF8(bytes.substr(std::min(zero + 1, size))));
  if (uri && base) check(uri, base);
  return 0;
}
