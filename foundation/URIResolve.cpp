#include "foundation/Pathes.h"
#include "foundation/URI.h"
#include "foundation/URIEscape.h"
#include "foundation/URIText.h"

#include <algorithm>
#include <array>
#include <vector>

namespace orlo {

namespace {

using uri::Part;
using uri::View;

/// The raw components of a URI, for as long as this lives.
class CRawParts {
public:
  explicit CRawParts(const IURI& source)
      : texts_{uri::toWideText(source.getScheme()),       uri::toWideText(source.getRawSchemeSpecificPart()),
               uri::toWideText(source.getRawAuthority()), uri::toWideText(source.getRawPath()),
               uri::toWideText(source.getRawQuery()),     uri::toWideText(source.getRawFragment())} {
    parts.scheme = partOf(0);
    parts.schemeSpecificPart = partOf(1).value_or(View());
    parts.authority = partOf(2);
    parts.path = partOf(3);
    parts.query = partOf(4);
    parts.fragment = partOf(5);
    parts.hierarchical = source.isHierarchical();
  }
  CRawParts(const CRawParts&) = delete;
  CRawParts& operator=(const CRawParts&) = delete;

  uri::CParts parts;

private:
  Part partOf(std::size_t index) const { return texts_[index].isNull() ? Part() : Part(uri::unitsOf(texts_[index])); }

  std::array<String, 6> texts_;
};

P<IURI> withPath(uri::CParts parts, View path) {
  parts.path = path;
  parts.query.reset();
  parts.fragment.reset();
  return createURI(parts);
}

View lastFolderOf(View folder) {
  if (folder.size() < 2) return {};
  return folder.substr(folder.rfind(u'/', folder.size() - 2) + 1);
}

/// The folder that both paths lie in.
View sharedFolder(View a, View b) {
  const auto differ = std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first;
  return uri::folderOf(a.substr(0, static_cast<std::size_t>(differ - a.begin())));
}

/// Whether a text of this path alone would not begin with a scheme or an authority.
bool readsAsPath(View path) {
  return !path.starts_with(u"//") && path.substr(0, path.find(u'/')).find(u':') == View::npos;
}

/// Ways to write a path relative to another, from the one that people would write to the one that says all.
std::vector<std::u16string> relativeForms(View path, View base) {
  const View shared = sharedFolder(path, base);
  const std::u16string rest(path.substr(shared.size()));
  const View left = uri::folderOf(base).substr(shared.size());
  std::u16string up;
  for (auto i = std::count(left.begin(), left.end(), u'/'); i > 0; --i) up += u"../";
  const std::u16string again(lastFolderOf(shared));
  return {up + rest, u"../" + up + again + rest, std::u16string(path)};
}

}  // namespace

CURI::CURI(const IURI& base, const String& relative) {
  const CURI reference(relative);
  const CRawParts own(reference);
  const CRawParts document(base);
  std::u16string text;
  takeComposed(uri::resolve(own.parts, document.parts, text));
}

P<IURI> CURI::getFolderURI() const {
  if (!hasPath()) return nullptr;
  const CRawParts own(*this);
  return withPath(own.parts, uri::folderOf(*own.parts.path));
}

P<IURI> CURI::getParentURI() const {
  if (!hasPath()) return nullptr;
  const CRawParts own(*this);
  View path = *own.parts.path;
  if (path == u"/") return nullptr;
  if (path.ends_with(u'/')) path.remove_suffix(1);
  const View folder = uri::folderOf(path);
  const View name = path.substr(folder.size());
  if (name != u".." && !(name.empty() && folder.empty())) return withPath(own.parts, folder);
  return withPath(own.parts, std::u16string(path) + (name.empty() ? u"../" : u"/../"));
}

P<IURI> CURI::resolve(const PC<IURI>& base) const {
  if (!base) return createURI(*this);
  const CRawParts own(*this);
  const CRawParts document(*base);
  std::u16string text;
  return createURI(uri::resolve(own.parts, document.parts, text));
}

P<IURI> CURI::makeRelative(const PC<IURI>& base) const {
  const bool related = base && isHierarchical() && base->isHierarchical() && getScheme() == base->getScheme() &&
                       hasAuthority() == base->hasAuthority() && getRawAuthority() == base->getRawAuthority();
  if (!related) return createURI(*this);
  const CRawParts own(*this);
  uri::CParts parts;
  parts.hierarchical = true;
  parts.fragment = own.parts.fragment;
  const auto meansThis = [&](const P<IURI>& reference) { return *reference->resolve(base) == *this; };
  if (const P<IURI> result = createURI(uri::fromUnits(uri::compose(parts))); meansThis(result)) return result;
  parts.query = own.parts.query;
  const CRawParts document(*base);
  for (const std::u16string& path :
       relativeForms(own.parts.path.value_or(View()), document.parts.path.value_or(View()))) {
    if (!readsAsPath(path)) continue;
    parts.path = path;
    const P<IURI> result = createURI(uri::fromUnits(uri::compose(parts)));
    if (meansThis(result)) return result;
  }
  return createURI(*this);
}

String CURI::getLocalPath() const {
  return getPathes()->uriToPath(this);
}

String CURI::toFileURI() const {
  return getPathes()->toFileURI(this);
}

}  // namespace orlo
