#include "foundation/URIText.h"

#include <algorithm>
#include <cstdint>

namespace orlo::uri {

namespace {

/// A set of characters below 64, where all delimiters are.
constexpr std::uint64_t delimiters(std::string_view characters) {
  std::uint64_t set = 0;
  for (const char character : characters) set |= std::uint64_t{1} << character;
  return set;
}

std::size_t findDelimiter(View text, std::uint64_t set) {
  const auto found =
      std::find_if(text.begin(), text.end(), [set](char16_t unit) { return unit < 64 && (set >> unit & 1) != 0; });
  return static_cast<std::size_t>(found - text.begin());
}

/// The front of the text up to the first of the delimiters, or all of it; the text begins behind that then.
View takeUntil(View& text, std::uint64_t set) {
  const View front = text.substr(0, findDelimiter(text, set));
  text.remove_prefix(front.size());
  return front;
}

bool startsWith(View text, char16_t unit) {
  return !text.empty() && text.front() == unit;
}

template <class OnSegment>
void forEachSegment(View path, OnSegment onSegment) {
  for (;;) {
    const View segment = path.substr(0, path.find(u'/'));
    const bool last = segment.size() == path.size();
    if (!onSegment(segment, last) || last) return;
    path.remove_prefix(segment.size() + 1);
  }
}

/// The path without the segment at its end, which is followed by "/". Nothing if there is none that could go.
std::size_t withoutLastSegment(const std::u16string& path, std::size_t root) {
  if (path.size() <= root) return View::npos;
  const std::size_t slash = path.size() >= 2 ? path.rfind(u'/', path.size() - 2) : View::npos;
  const std::size_t start = slash == View::npos ? 0 : slash + 1;
  const bool isParent = View(path).substr(start) == u"../";
  return isParent || start < root ? View::npos : start;
}

/// What a relative path, which stands in the text, is directly behind a scheme.
CParts opaque(const CParts& parts, std::u16string& text) {
  if (parts.query) (text += u'?').append(*parts.query);
  if (parts.fragment) (text += u'#').append(*parts.fragment);
  CParts result;
  result.scheme = parts.scheme;
  result.schemeSpecificPart = text;
  return result;
}

}  // namespace

CParts split(View text) {
  CParts parts;
  const std::size_t delimiter = findDelimiter(text, delimiters(":/?#"));
  if (delimiter < text.size() && text[delimiter] == u':') {
    parts.scheme = text.substr(0, delimiter);
    text.remove_prefix(delimiter + 1);
  }
  parts.schemeSpecificPart = text;
  parts.hierarchical = !parts.scheme || startsWith(text, u'/');
  if (!parts.hierarchical) return parts;

  if (text.substr(0, 2) == u"//") {
    text.remove_prefix(2);
    parts.authority = takeUntil(text, delimiters("/?#"));
  }
  const View path = takeUntil(text, delimiters("?#"));
  if (!path.empty()) parts.path = path;
  if (startsWith(text, u'?')) {
    text.remove_prefix(1);
    parts.query = takeUntil(text, delimiters("#"));
  }
  if (startsWith(text, u'#')) parts.fragment = text.substr(1);
  return parts;
}

std::u16string compose(const CParts& parts) {
  std::u16string text;
  if (parts.scheme) text.append(*parts.scheme) += u':';
  if (!parts.hierarchical) return text.append(parts.schemeSpecificPart);
  if (parts.authority) text.append(u"//").append(*parts.authority);
  if (parts.path) {
    if (parts.authority && !parts.path->empty() && !startsWith(*parts.path, u'/')) text += u'/';
    text.append(*parts.path);
  }
  if (parts.query) (text += u'?').append(*parts.query);
  if (parts.fragment) (text += u'#').append(*parts.fragment);
  return text;
}

CParts placed(const CParts& parts, View composed) {
  CParts result;
  const auto take = [&composed](std::size_t size) {
    const View front = composed.substr(0, size);
    composed.remove_prefix(size);
    return front;
  };
  result.hierarchical = parts.hierarchical;
  if (parts.scheme) {
    result.scheme = take(parts.scheme->size());
    take(1);
  }
  result.schemeSpecificPart = composed;
  if (!parts.hierarchical) return result;
  if (parts.authority) {
    take(2);
    result.authority = take(parts.authority->size());
  }
  std::size_t behindPath = composed.size();
  if (parts.fragment) behindPath -= parts.fragment->size() + 1;
  if (parts.query) behindPath -= parts.query->size() + 1;
  const View path = take(behindPath);
  if (parts.path) result.path = path;
  if (parts.query) {
    take(1);
    result.query = take(parts.query->size());
  }
  if (parts.fragment) result.fragment = composed.substr(1);
  return result;
}

bool hasDotSegments(View path) {
  bool found = false;
  if (path.find(u'.') == View::npos) return found;
  forEachSegment(path, [&found](View segment, bool) {
    found = segment == u"." || segment == u"..";
    return !found;
  });
  return found;
}

std::u16string withoutDotSegments(View path) {
  std::u16string result;
  result.reserve(path.size());
  const std::size_t root = startsWith(path, u'/') ? 1 : 0;
  if (root > 0) result += u'/';
  forEachSegment(path.substr(root), [&](View segment, bool last) {
    if (segment == u".") return true;
    if (segment == u"..") {
      const std::size_t parent = withoutLastSegment(result, root);
      if (parent != View::npos) {
        result.resize(parent);
        return true;
      }
    }
    result.append(segment);
    if (!last) result += u'/';
    return true;
  });
  return result;
}

View folderOf(View path) {
  const std::size_t slash = path.rfind(u'/');
  return slash == View::npos ? View() : path.substr(0, slash + 1);
}

CParts resolve(CParts reference, const CParts& base, std::u16string& text) {
  if (reference.scheme) return reference;
  if (!reference.path && !reference.authority && !reference.query) {
    CParts result = base;
    result.fragment = reference.fragment;
    return result;
  }
  reference.scheme = base.scheme;
  if (reference.authority) return reference;
  reference.authority = base.authority;
  const View own = reference.path.value_or(View());
  if (startsWith(own, u'/')) return reference;
  text = folderOf(base.path.value_or(View()));
  if (text.empty() && base.authority && !own.empty()) text = u'/';
  text = withoutDotSegments(text.append(own));
  if (!base.hierarchical) return opaque(reference, text);
  reference.path = text;
  return reference;
}

CAuthority splitAuthority(View authority) {
  CAuthority result;
  const std::size_t at = authority.find(u'@');
  if (at != View::npos) {
    result.userInfo = authority.substr(0, at);
    authority.remove_prefix(at + 1);
  }
  const std::size_t colon = authority.find_last_of(u":]");
  if (colon != View::npos && authority[colon] == u':') {
    result.host = authority.substr(0, colon);
    result.port = authority.substr(colon + 1);
  } else {
    result.host = authority;
  }
  return result;
}

}  // namespace orlo::uri
