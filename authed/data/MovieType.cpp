#include "authed/data/MovieType.h"

#include "authed/data/Editable.h"
#include "authed/data/MovieFile.h"
#include "authed/data/MovieTheme.h"
#include "foundation/Error.h"
#include "foundation/StringLocalizer.h"
#include "foundation/wxutil/WXString.h"

#include <algorithm>
#include <iterator>

namespace authed::data {

namespace {

struct CKind {
  EMovieType type;
  const char* word;
  const char* key;
  const char* displayName;
};

constexpr CKind kKinds[] = {
    {EMovieType::file, "movie-file", "authed.CMovie.Movie", "Movie File"},
    {EMovieType::slideshow, "slideshow", "authed.CMovie.Slideshow", "Slideshow"},
    {EMovieType::edited, "edited-movie", "authed.CMovie.EditedMovie", "Edited Movie"},
    {EMovieType::theme, "theme", "authed.CMovieTheme.Theme", "Animated Theme"},
    {EMovieType::custom, "custom", "authed.CMovie.Custom", "Custom Movie"},
};

template <class Matches>
const CKind& FindKind(Matches matches) {
  const auto* const found = std::find_if(std::begin(kKinds), std::end(kKinds), matches);
  if (found == std::end(kKinds)) throw orlo::CException("Unknown Movie type");
  return *found;
}

const CKind& KindOf(EMovieType type) {
  return FindKind([type](const CKind& kind) { return kind.type == type; });
}

}  // namespace

wxString GetMovieTypeName(EMovieType type) {
  return KindOf(type).word;
}

EMovieType GetMovieType(const wxString& name) {
  return FindKind([&name](const CKind& kind) { return name == kind.word; }).type;
}

wxString GetMovieTypeDisplayName(EMovieType type) {
  const CKind& kind = KindOf(type);
  return wxutil::toWxString(orlo::localize(kind.key, kind.displayName));
}

orlo::P<CMovie> CreateMovie(EMovieType type) {
  switch (type) {
    case EMovieType::file:
      return orlo::makeObject<CMovieFile>();
    case EMovieType::slideshow:
      return orlo::makeObject<CSlideshow>();
    case EMovieType::edited:
      return orlo::makeObject<CEditedMovie>();
    case EMovieType::theme:
      return orlo::makeObject<CMovieTheme>();
    case EMovieType::custom:
      break;
  }
  return nullptr;
}

}  // namespace authed::data
