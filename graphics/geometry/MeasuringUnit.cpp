#include "graphics/geometry/MeasuringUnit.h"

#include "foundation/StringLocalizer.h"
#include "foundation/wxutil/WXString.h"

#include <algorithm>
#include <charconv>
#include <clocale>
#include <limits>
#include <string>

namespace graphics {

wxString GetUnitName(orlo::MeasurementSystem system, bool shortForm) {
  const auto localized = [](const char* key, const char* text) {
    return wxutil::toWxString(orlo::localize(key, text));
  };
  switch (system) {
    case orlo::MeasurementSystem::metric:
      return localized("graphics.Unit.cm", "cm");
    case orlo::MeasurementSystem::imperial:
      return shortForm ? localized("graphics.Unit.InchesShort", "\"") : localized("graphics.Unit.Inches", "inches");
    default:
      return localized("graphics.Unit.mm", "mm");
  }
}

wxString FormatForDisplay(double value, int decimals) {
  constexpr int kMostDecimals = 100;
  std::string text(std::numeric_limits<double>::max_exponent10 + kMostDecimals + 8, '\0');
  const int precision = std::clamp(decimals, 0, kMostDecimals);
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, precision).ptr;
  text.resize(static_cast<std::size_t>(end - text.data()));
  wxString result(text);
  result.Replace(".", std::localeconv()->decimal_point);
  return result;
}

wxString FormatLength(double value, int decimals) {
  return FormatForDisplay(value, decimals) + ' ' + GetUnitName(orlo::getMeasurementSystem(), false);
}

}  // namespace graphics
