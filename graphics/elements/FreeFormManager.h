#pragma once

#include "graphics/elements/FreeForm.h"

#include <vector>

namespace graphics {

/// Knows the built-in free forms. Using the forms needs the toolkit's lock; to change one, clone it.
class CFreeFormManager : public orlo::CObject {
public:
  CFreeFormManager();

  /// The one of the process, made at its first use.
  static CFreeFormManager& GetInstance();

  const std::vector<orlo::P<CFreeForm>>& GetForms() const { return forms_; }
  /// Null if no built-in form has the name.
  orlo::P<CFreeForm> Find(const wxString& name) const;

private:
  std::vector<orlo::P<CFreeForm>> forms_;
};

/// A free form with the outline of the document: of the built-in class that has the name, if one has.
orlo::P<CFreeForm> MakeFreeForm(const wxString& name, const orlo::P<CGraphicDocument>& document);

}  // namespace graphics
