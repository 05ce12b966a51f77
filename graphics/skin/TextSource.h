#pragma once

#include "foundation/Base.h"

#include <wx/string.h>

namespace graphics::skin {

/// Where a skin gets the texts that it shows.
class ITextSource : public virtual orlo::IBase {
public:
  virtual wxString GetText(const wxString& key) = 0;
};

}  // namespace graphics::skin
