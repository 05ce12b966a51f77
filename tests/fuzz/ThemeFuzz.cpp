// Reads any bytes as the description of a theme.

#include "backend/ffmpeg/ThemeDescription.h"
#include "foundation/Error.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>

using namespace vantra::ffmpeg;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    const CThemeDescription theme = ParseTheme({reinterpret_cast<const char*>(data), size});
    bool isGood = theme.size.width >= 1 && theme.size.height >= 1 && std::isfinite(theme.length);
    for (int channel = 0; channel < 3; ++channel)
      isGood = isGood && theme.background[static_cast<std::size_t>(channel)] <= theme.background[3];
    for (const CThemePlace& place : theme.places)
      isGood = isGood && std::isfinite(place.box.width + place.start + place.degrees) &&
               (place.number > 0 || !place.movie.isEmpty());
    if (!isGood) std::abort();
  } catch (const orlo::CError&) {
    // No description.
  }
  return 0;
}
