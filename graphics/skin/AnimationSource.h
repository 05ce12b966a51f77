#pragma once

#include "foundation/Base.h"

#include <wx/string.h>

class wxBitmap;

namespace graphics::skin {

/// Where a skin gets the pictures that it shows.
class IAnimationSource : public virtual orlo::IBase {
public:
  /// Stays the source's; null if it has none for the key.
  virtual wxBitmap* GetBitmap(const wxString& key) = 0;
};

}  // namespace graphics::skin
