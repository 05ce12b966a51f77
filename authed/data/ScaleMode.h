#pragma once

#include <wx/string.h>

#include <cstdint>

namespace authed::data {

/// How a picture lies in its box, always with its proportions.
enum class EScaleMode : std::int32_t {
  /// Whole, with black bars.
  width = 0,
  /// As high as the box, with black bars or beyond the sides.
  height = 1,
  /// Fills the box, what is too much is cut off equally on both sides.
  fitting = 2
};

/// The word that a mode is stored under, "unknown" for any other value.
wxString WordOf(EScaleMode mode);
/// Compares exactly. Throws orlo::CException for any other word.
EScaleMode ScaleModeOf(const wxString& word);

}  // namespace authed::data
