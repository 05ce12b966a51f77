#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orlo::uri {

using View = std::u16string_view;
/// Nothing is an absent component, which is not the same as an empty one.
using Part = std::optional<View>;

/// The components of a URI as they stand in its text.
struct CParts {
  Part scheme;
  View schemeSpecificPart;
  Part authority;
  Part path;
  Part query;
  Part fragment;
  /// If false, there is nothing but the scheme and the scheme-specific part.
  bool hierarchical = false;
};

CParts split(View text);

/// The text of the components. A path behind an authority begins with "/".
std::u16string compose(const CParts& parts);
/// The same components as they stand in their composed text.
CParts placed(const CParts& parts, View composed);

/// Whether the path has a segment "." or "..".
bool hasDotSegments(View path);
/// The path without segments "." and without pairs of a segment and ".." behind it. A ".." that has no partner stays.
std::u16string withoutDotSegments(View path);

/// Up to and including the last "/"; empty if there is none.
View folderOf(View path);

/// What a reference means in a document at base. What had to be put together is kept in the string given. Where base is
/// not hierarchical, a relative path comes to stand behind its scheme.
CParts resolve(CParts reference, const CParts& base, std::u16string& text);

struct CAuthority {
  Part userInfo;
  View host;
  Part port;
};

CAuthority splitAuthority(View authority);

}  // namespace orlo::uri
