#include "foundation/ConstArray.h"

#include "foundation/Array.h"
#include "foundation/Error.h"

namespace orlo {

namespace detail {

template <class Pointer, class Interface>
TObjectArray<Pointer, Interface>::TObjectArray() {
  elements_.attach(new TCleaningSimpleArray<Pointer>);
}

template <class Pointer, class Interface>
P<IConstEnum> TObjectArray<Pointer, Interface>::getConstEnum() const {
  P<IConstEnum> walk;
  walk.attach(new CConstArray::CConstEnum(this));
  return walk;
}

template <class Pointer, class Interface>
int TObjectArray<Pointer, Interface>::indexOf(const PC<IBase>& object) const {
  const TCleaningSimpleArray<Pointer>& all = *elements_;
  const auto found = std::find(all.begin(), all.end(), object);
  return found == all.end() ? -1 : static_cast<int>(found - all.begin());
}

template <class Pointer, class Interface>
int TObjectArray<Pointer, Interface>::checked(int index, int last) const {
  if (index < 0 || index > last)
    throw CInvalidArgError(nullptr, &typeid(*this), nullptr, "The index is not in the array.");
  return index;
}

template class TObjectArray<PC<IBase>, IConstArray>;
template class TObjectArray<P<IBase>, IArray>;

}  // namespace detail

PC<IBase> CConstArray::CConstEnum::nextConst() {
  if (!hasNext()) throw CEndOfEnumError(nullptr, &typeid(CConstEnum));
  return array_->getConst(index_++);
}

}  // namespace orlo
