#pragma once

#include "foundation/MeasurementSystem.h"

#include <wx/string.h>

namespace graphics {

/// The localised name of the unit that lengths are shown in. The short form differs for inches only.
wxString GetUnitName(orlo::MeasurementSystem system, bool shortForm);

/// A number for display, with that many decimals (0 to 100) and the locale's decimal separator.
wxString FormatForDisplay(double value, int decimals);

/// The same with the unit that the user's locale measures in.
wxString FormatLength(double value, int decimals);

}  // namespace graphics
