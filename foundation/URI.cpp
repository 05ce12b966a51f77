#include "foundation/URI.h"

#include "foundation/Cast.h"
#include "foundation/NumberText.h"
#include "foundation/StringSlice.h"
#include "foundation/URIEscape.h"
#include "foundation/URIText.h"

#include <list>
#include <string>

namespace orlo {

namespace {

using uri::Part;
using uri::View;

constexpr const wchar_t* kAuthorityCharacters = L";:,&=+$@[]";
constexpr const wchar_t* kHostCharacters = L":[]";
constexpr const wchar_t* kUserInfoCharacters = L";:,&=+$";
constexpr const wchar_t* kQueryCharacters = L";:,/?@&=+$";
constexpr const wchar_t* kFragmentCharacters = L";:,/?@&=+$";

/// A part of the text's own units; null if there is none.
P<IString> sliceOf(const String& text, const Part& part) {
  if (!part) return nullptr;
  const CTextView whole = text.view();
  const int size = static_cast<int>(part->size() * sizeof(char16_t));
  if (size == whole.byteSize) return text.getObject();
  CTextView window(part->data(), size, size / 2, *whole.encoding);
  // Surrogates make fewer characters than units.
  if (whole.length != whole.byteSize / 2) window.length = window.encoding->countChars(window.data, size, 0);
  return makeObject<CStringSlice>(text.getObject()->getRoot(), window);
}

bool hasEscapes(View text) {
  return text.find(u'%') != View::npos;
}

/// Keeps the texts that the parts of a composition refer to.
class CComposer {
public:
  void add(Part& part, const String& text) {
    if (!text.isNull()) part = uri::unitsOf(*texts_.insert(texts_.end(), uri::toWideText(text)));
  }
  void add(Part& part, const String& text, const wchar_t* allowed) {
    if (!text.isNull()) add(part, uriEscape(text, allowed));
  }
  String compose() const { return uri::fromUnits(uri::compose(parts)); }

  uri::CParts parts;

private:
  std::list<String> texts_;
};

String composed(const String& scheme, const String& schemeSpecificPart) {
  CComposer composer;
  composer.add(composer.parts.scheme, scheme);
  Part rest;
  composer.add(rest, schemeSpecificPart);
  composer.parts.schemeSpecificPart = rest.value_or(View());
  return composer.compose();
}

void addBehindAuthority(CComposer& composer, const String& scheme, const String& path, const String& query,
                        const String& fragment) {
  composer.parts.hierarchical = true;
  composer.add(composer.parts.scheme, scheme);
  composer.add(composer.parts.path, path, uri::kPathCharacters);
  composer.add(composer.parts.query, query, kQueryCharacters);
  composer.add(composer.parts.fragment, fragment, kFragmentCharacters);
}

String composed(const String& scheme, const String& authority, const String& path, const String& query,
                const String& fragment) {
  CComposer composer;
  addBehindAuthority(composer, scheme, path, query, fragment);
  composer.add(composer.parts.authority, authority, kAuthorityCharacters);
  return composer.compose();
}

String authorityOf(const String& host, std::int32_t port, const String& userInfo) {
  if (host.isNull()) return nullptr;
  String authority = userInfo.isNull() ? String(u"") : uriEscape(userInfo, kUserInfoCharacters) + "@";
  authority += uriEscape(host, kHostCharacters);
  return port < 0 ? authority : authority + ":" + intToString(port);
}

String composed(const String& scheme, const String& host, std::int32_t port, const String& userInfo, const String& path,
                const String& query, const String& fragment) {
  CComposer composer;
  addBehindAuthority(composer, scheme, path, query, fragment);
  composer.add(composer.parts.authority, authorityOf(host, port, userInfo));
  return composer.compose();
}

}  // namespace

CURI::CComponent CURI::componentOf(const String& text, const Part& part) {
  CComponent result;
  result.raw = sliceOf(text, part);
  if (part && hasEscapes(*part)) result.other = uri::unescape(*part).getObject();
  return result;
}

CURI::CComponent CURI::componentIn(View whole, const CComponent& wholeComponent, const String& text, const Part& part) {
  if (!part || !hasEscapes(*part)) return componentOf(text, part);
  const auto start = static_cast<std::size_t>(part->data() - whole.data());
  const View behind = whole.substr(start + part->size());
  if (hasEscapes(whole.substr(0, start)) || hasEscapes(behind)) return componentOf(text, part);
  // All around it is the same in the decoded text.
  const String decoded = wholeComponent.other;
  const View units = uri::unitsOf(decoded);
  CComponent result;
  result.raw = sliceOf(text, part);
  result.other = sliceOf(decoded, units.substr(start, units.size() - start - behind.size()));
  return result;
}

CURI::CURI(const String& text) {
  const String given = text.isNull() ? String(u"") : uri::toWideText(text);
  uri::CParts parts = uri::split(uri::unitsOf(given));
  if (parts.path && uri::hasDotSegments(*parts.path)) {
    const std::u16string path = uri::withoutDotSegments(*parts.path);
    parts.path = path;
    takeComposed(parts);
    components_.schemeSpecificPart = componentOf(given, parts.schemeSpecificPart);
  } else {
    take(parts, given);
  }
}

CURI::CURI(const String& scheme, const String& schemeSpecificPart) : CURI(composed(scheme, schemeSpecificPart)) {}

CURI::CURI(const String& scheme, const String& authority, const String& path, const String& query,
           const String& fragment)
    : CURI(composed(scheme, authority, path, query, fragment)) {}

CURI::CURI(const String& scheme, const String& host, std::int32_t port, const String& userInfo, const String& path,
           const String& query, const String& fragment)
    : CURI(composed(scheme, host, port, userInfo, path, query, fragment)) {}

CURI::CURI(const uri::CParts& parts) {
  takeComposed(parts);
}

CURI::CURI(const CURI& other) : CObject(), IURI(), text_(other.text_), components_(other.components_) {}

void CURI::takeComposed(const uri::CParts& parts) {
  const String text = uri::fromUnits(uri::compose(parts));
  take(uri::placed(parts, uri::unitsOf(text)), text);
}

void CURI::take(const uri::CParts& parts, const String& text) {
  text_ = text;
  components_.relative = !parts.scheme;
  components_.hierarchical = parts.hierarchical;
  components_.scheme = sliceOf(text, parts.scheme);
  const View rest = parts.schemeSpecificPart;
  components_.schemeSpecificPart = componentOf(text, rest);
  const auto component = [&](const Part& part) {
    return componentIn(rest, components_.schemeSpecificPart, text, part);
  };
  components_.authority = component(parts.authority);
  if (parts.authority) takeAuthority(*parts.authority, text);
  components_.path = component(parts.path);
  if (parts.path) takePath(*parts.path, text);
  components_.query = component(parts.query);
  components_.fragment = component(parts.fragment);
}

void CURI::takeAuthority(View authority, const String& text) {
  const uri::CAuthority parts = uri::splitAuthority(authority);
  components_.userInfo = componentOf(text, parts.userInfo);
  components_.host = sliceOf(text, parts.host);
  components_.portText = sliceOf(text, parts.port);
  if (parts.port) components_.port = static_cast<std::int32_t>(parseUInt64(*components_.portText));
}

void CURI::takePath(View path, const String& text) {
  const View folder = uri::folderOf(path);
  const View name = path.substr(folder.size());
  if (!folder.empty()) components_.folder = componentOf(text, folder);
  if (name.empty()) return;
  components_.fileName = componentIn(path, components_.path, text, name);
  const std::size_t dot = name.rfind(u'.');
  components_.baseName =
      dot == View::npos ? components_.fileName : componentIn(name, components_.fileName, text, name.substr(0, dot));
  if (dot != View::npos) components_.extension = componentOf(text, name.substr(dot + 1));
}

int CURI::compare(PC<IBase> other) const {
  if (!other) return 1;
  // The checked casts are made for objects that may change; a location does not.
  return text_.compare(cast<IURI>(const_cast<IBase*>(other.get()))->getDescription());
}

bool operator==(const IURI& left, const IURI& right) {
  return left.getDescription() == right.getDescription();
}

}  // namespace orlo
