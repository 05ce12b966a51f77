#include "graphics/elements/FreeFormManager.h"

#include "foundation/Singleton.h"
#include "graphics/elements/BuiltInFreeForms.h"

#include <algorithm>

namespace graphics {

CFreeFormManager::CFreeFormManager()
    : forms_{orlo::makeObject<CFreeFormStar>(), orlo::makeObject<CFreeFormTrapeze>(),
             orlo::makeObject<CFreeFormTriangle>(), orlo::makeObject<CFreeFormParallelogram>()} {}

CFreeFormManager& CFreeFormManager::GetInstance() {
  static constinit orlo::TSingleton<CFreeFormManager> instance;
  return *instance.get([] { return orlo::makeObject<CFreeFormManager>(); });
}

orlo::P<CFreeForm> CFreeFormManager::Find(const wxString& name) const {
  const auto found =
      std::find_if(forms_.begin(), forms_.end(), [&](const auto& form) { return form->GetName() == name; });
  return found == forms_.end() ? nullptr : *found;
}

orlo::P<CFreeForm> MakeFreeForm(const wxString& name, const orlo::P<CGraphicDocument>& document) {
  if (name == CFreeFormStar::kName) return orlo::makeObject<CFreeFormStar>(document);
  if (name == CFreeFormTrapeze::kName) return orlo::makeObject<CFreeFormTrapeze>(document);
  if (name == CFreeFormTriangle::kName) return orlo::makeObject<CFreeFormTriangle>(document);
  if (name == CFreeFormParallelogram::kName) return orlo::makeObject<CFreeFormParallelogram>(document);
  return orlo::makeObject<CFreeForm>(name, document);
}

}  // namespace graphics
