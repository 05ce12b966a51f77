#pragma once

#include "backend/ffmpeg/Geometry.h"
#include "foundation/Pointer.h"
#include "foundation/String.h"
#include "foundation/URI.h"

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

namespace vantra::ffmpeg {

/// A place of a theme where a movie is seen.
struct CThemePlace {
  /// The id of the movie, or its position in the theme beginning with 1; 0 if the id counts.
  orlo::String movie;
  std::int32_t number = 0;
  /// As in a track.
  CBox box;
  double start = 0;
  double duration = 0;
  /// Where in the movie it begins.
  double movieStart = 0;
  bool repeats = false;
  bool mirrorsHorizontally = false;
  bool mirrorsVertically = false;
  double degrees = 0;
};

/// What a theme's file says; docs/theme-format.md tells how it is written.
struct CThemeDescription {
  double length = 0;
  CSize size;
  /// B, G, R, A, premultiplied.
  std::array<std::uint8_t, 4> background{};
  /// Null for none.
  orlo::PC<orlo::IURI> picture;
  std::vector<CThemePlace> places;
};

/// Throws CFailure for what is no description.
CThemeDescription ParseTheme(std::string_view text);

}  // namespace vantra::ffmpeg
