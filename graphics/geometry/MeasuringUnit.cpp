#include "graphics/geometry/MeasuringUnit.h"

#include "foundation/StringFormat.h"
#include "foundation/StringLocalizer.h"
#include "foundation/wxutil/WXString.h"

#include <algorithm>

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
  orlo::CStringFormat format("%.*f");
  format.push(std::clamp(decimals, 0, kMostDecimals)).push(value);
  return wxutil::toWxString(format.getString());
}

wxString FormatLength(double value, int decimals) {
  return FormatForDisplay(value, decimals) + ' ' + GetUnitName(orlo::getMeasurementSystem(), false);
}

}  // namespace graphics
