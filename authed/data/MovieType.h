#pragma once

#include "foundation/Pointer.h"

#include <wx/string.h>

#include <cstdint>

namespace authed::data {

class CMovie;

/// The kinds of movies. Movies of their own making (5) have no class here.
enum class EMovieType : std::int32_t { file = 0, slideshow = 1, edited = 2, theme = 3, custom = 5 };

/// The word that a kind is stored under. Throws orlo::CException for any other value.
wxString GetMovieTypeName(EMovieType type);
/// Compares exactly. Throws orlo::CException for any other word.
EMovieType GetMovieType(const wxString& name);
/// For people, localised.
wxString GetMovieTypeDisplayName(EMovieType type);
/// An empty movie of the kind. Null for one that has no class.
orlo::P<CMovie> CreateMovie(EMovieType type);

}  // namespace authed::data
