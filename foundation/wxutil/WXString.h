#pragma once

#include "foundation/String.h"

#include <wx/string.h>

/// The one place where texts pass between the toolkit and the rest.
namespace wxutil {

wxString toWxString(const orlo::String& text);
orlo::String fromWxString(const wxString& text);

}  // namespace wxutil
