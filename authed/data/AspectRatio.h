#pragma once

#include <wx/string.h>

#include <cstdint>
#include <optional>

namespace authed::data {

/// Of the screen that a movie is made for.
enum class EAspectRatio : std::int32_t { wide = 0, narrow = 1 };

/// "16:9" or "4:3". Throws orlo::CException for any other value.
wxString WordOf(EAspectRatio ratio);
/// Nothing for any other word.
std::optional<EAspectRatio> AspectRatioOf(const wxString& word);
/// 1.0 for any other value.
double HeightOverWidth(EAspectRatio ratio);

}  // namespace authed::data
