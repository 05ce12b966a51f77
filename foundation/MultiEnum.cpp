#include "foundation/MultiEnum.h"

#include "foundation/Error.h"
#include "foundation/StringLocalizer.h"

namespace orlo {

namespace detail {

template <class Enum>
int TMultiEnum<Enum>::getCount() {
  locked_ = true;
  int count = 0;
  for (const P<Enum>& sub : subs_) count += sub->getCount();
  return count;
}

template <class Enum>
void TMultiEnum<Enum>::reset() {
  locked_ = true;
  index_ = 0;
  for (const P<Enum>& sub : subs_) sub->reset();
}

template <class Enum>
void TMultiEnum<Enum>::addSub(P<Enum> sub, const char* lockedKey, const char* lockedText) {
  if (locked_) throw CInvalidObjectStateError(localize(lockedKey, lockedText), nullptr, &typeid(*this));
  if (!sub) throw CInvalidArgError(nullptr, &typeid(*this), nullptr, "The sub enumerator is null.");
  subs_.add(std::move(sub));
}

template <class Enum>
Enum& TMultiEnum<Enum>::needNext() {
  if (Enum* sub = findNext()) return *sub;
  throw CEndOfEnumError(nullptr, &typeid(*this));
}

template <class Enum>
Enum* TMultiEnum<Enum>::findNext() {
  locked_ = true;
  for (; index_ < subs_.getCount(); ++index_)
    if (subs_[index_]->hasNext()) return subs_[index_].get();
  return nullptr;
}

template class TMultiEnum<IEnum>;
template class TMultiEnum<IConstEnum>;

}  // namespace detail

void CMultiEnum::add(P<IEnum> sub) {
  addSub(std::move(sub), "orlo.CMultiEnum.addLocked",
         "No more sub enums can be added to a multi enum after one of its IEnum methods has been called.");
}

void CConstMultiEnum::add(P<IConstEnum> sub) {
  addSub(std::move(sub), "orlo.CConstMultiEnum.addLocked",
         "No more sub enums can be added to a multi enum after one of its IConstEnum methods has been called.");
}

}  // namespace orlo
