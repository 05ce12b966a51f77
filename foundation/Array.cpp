#include "foundation/Array.h"

#include "foundation/Cast.h"
#include "foundation/Comparable.h"
#include "foundation/Error.h"

#include <vector>

namespace orlo {

bool CArray::remove(const PC<IBase>& object) {
  const int index = indexOf(object);
  if (index >= 0) elements().removeAt(index);
  return index >= 0;
}

P<IEnum> CArray::getEnum() {
  P<IEnum> walk;
  walk.attach(new CEnum(this));
  return walk;
}

void CArray::insert(int index, P<IBase> object) {
  elements().insert(checked(index, getCount()), std::move(object));
}

void CArray::set(int index, P<IBase> object) {
  elements()[checked(index, getCount() - 1)] = std::move(object);
}

void CArray::removeAt(int index) {
  elements().removeAt(checked(index, getCount() - 1));
}

void CArray::swap(int a, int b) {
  elements().swap(checked(a, getCount() - 1), checked(b, getCount() - 1));
}

void CArray::sort() {
  struct CPlaced {
    P<IBase> object;
    const IComparable* value;
  };
  std::vector<CPlaced> all;
  all.reserve(static_cast<std::size_t>(getCount()));
  for (const P<IBase>& object : elements()) all.push_back({object, cast<IComparable>(object)});
  // A copy is sorted, since comparing may throw, and may be at odds with itself.
  std::stable_sort(all.begin(), all.end(), [](const CPlaced& a, const CPlaced& b) {
    return a.value && b.value ? a.value->compare(b.object) < 0 : !a.value && b.value;
  });
  for (int i = 0; i < getCount() && i < static_cast<int>(all.size()); ++i)
    elements()[i] = std::move(all[static_cast<std::size_t>(i)].object);
}

P<IBase> CArray::CEnum::next() {
  if (!hasNext()) throw CEndOfEnumError(nullptr, &typeid(CEnum));
  return array_->get(index_++);
}

}  // namespace orlo
