#pragma once

#include "graphics/elements/FreeForm.h"

namespace graphics {

/// What the built-in free forms have in common: a name, a display name and an outline of their own. Given another
/// document, as files do, they have its outline instead.

class CFreeFormStar : public CFreeForm {
public:
  static constexpr char kName[] = "freeform.star";

  CFreeFormStar();
  explicit CFreeFormStar(const orlo::P<CGraphicDocument>& document) : CFreeForm(kName, document) {}
  wxString GetDisplayName() const override;
  orlo::P<CFreeForm> Clone() const override { return orlo::makeObject<CFreeFormStar>(CopyDocument()); }
};

class CFreeFormTrapeze : public CFreeForm {
public:
  static constexpr char kName[] = "freeform.trapeze";

  CFreeFormTrapeze();
  explicit CFreeFormTrapeze(const orlo::P<CGraphicDocument>& document) : CFreeForm(kName, document) {}
  wxString GetDisplayName() const override;
  orlo::P<CFreeForm> Clone() const override { return orlo::makeObject<CFreeFormTrapeze>(CopyDocument()); }
};

class CFreeFormTriangle : public CFreeForm {
public:
  static constexpr char kName[] = "freeform.triangle";

  CFreeFormTriangle();
  explicit CFreeFormTriangle(const orlo::P<CGraphicDocument>& document) : CFreeForm(kName, document) {}
  wxString GetDisplayName() const override;
  orlo::P<CFreeForm> Clone() const override { return orlo::makeObject<CFreeFormTriangle>(CopyDocument()); }
};

class CFreeFormParallelogram : public CFreeForm {
public:
  static constexpr char kName[] = "freeform.parallelogram";

  CFreeFormParallelogram();
  explicit CFreeFormParallelogram(const orlo::P<CGraphicDocument>& document) : CFreeForm(kName, document) {}
  wxString GetDisplayName() const override;
  orlo::P<CFreeForm> Clone() const override { return orlo::makeObject<CFreeFormParallelogram>(CopyDocument()); }
};

}  // namespace graphics
