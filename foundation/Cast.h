#pragma once

#include "foundation/Base.h"
#include "foundation/Pointer.h"

namespace orlo {

[[noreturn]] void throwCastError(IBase* object, const std::type_info& target);

/// The object as a T, or null. Follows a redirection to an owning object if followOuter is set, then tries the
/// object itself, then its aggregates.
template <class T>
T* tryCast(IBase* object, bool followOuter = true) {
  if (!object) return nullptr;
  IBase* outer = nullptr;
  CastLink* aggregates = nullptr;
  if (!object->queryCast(typeid(T), &outer, &aggregates)) return nullptr;
  if (outer && followOuter) return tryCast<T>(outer, true);
  if (T* result = dynamic_cast<T*>(object)) return result;
  for (CastLink* link = aggregates; link; link = link->next)
    if (T* result = tryCast<T>(link->object, false)) return result;
  return nullptr;
}

/// As tryCast, but an object of another class throws CCastError. A null object gives null.
template <class T>
T* cast(IBase* object) {
  T* result = tryCast<T>(object, true);
  if (object && !result) throwCastError(object, typeid(T));
  return result;
}

template <class T, class U>
T* tryCast(const P<U>& object) {
  return tryCast<T>(static_cast<IBase*>(object.get()), true);
}

template <class T, class U>
T* cast(const P<U>& object) {
  return cast<T>(static_cast<IBase*>(object.get()));
}

/// For an object that is only read.
template <class T, class U>
const T* tryCast(const PC<U>& object) {
  // The hook of the casts is made for objects that may change; the cast itself changes nothing.
  return tryCast<T>(const_cast<IBase*>(static_cast<const IBase*>(object.get())), true);
}

template <class T, class U>
const T* cast(const PC<U>& object) {
  return cast<T>(const_cast<IBase*>(static_cast<const IBase*>(object.get())));
}

}  // namespace orlo
