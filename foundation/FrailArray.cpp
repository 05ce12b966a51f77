#include "foundation/FrailArray.h"

namespace orlo {

CFrailArrayTemplateBase::CFrailArrayTemplateBase() : elements_(makeObject<TCleaningSimpleArray<PFrail<IBase>>>(10)) {}

bool CFrailArrayTemplateBase::contains(const IBase* object) const {
  return std::any_of(elements_->begin(), elements_->end(),
                     [object](const PFrail<IBase>& element) { return element.get() == object; });
}

void CFrailArrayTemplateBase::addObject(IBase* object, bool strong) {
  elements_->add({object, strong});
}

bool CFrailArrayTemplateBase::removeObject(const IBase* object) {
  const auto found = std::find_if(elements_->begin(), elements_->end(),
                                  [object](const PFrail<IBase>& element) { return element.get() == object; });
  if (found == elements_->end()) return false;
  elements_->removeAt(static_cast<int>(found - elements_->begin()));
  return true;
}

IBase* CFrailArrayTemplateBase::objectAt(int index) const {
  return index >= 0 && index < getCount() ? (*elements_)[index].get() : nullptr;
}

}  // namespace orlo
