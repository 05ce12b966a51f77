#pragma once

#include "foundation/FrailArray.h"

#include <type_traits>
#include <vector>

namespace orlo {

/// Calls visit with each element, from the last to the first, until one answers true (if visit has an answer at all);
/// whether one did. Elements are held for their call. They may come and go meanwhile: who has been taken out is not
/// called any more, who comes is not called yet, and nobody is called twice or passed over for it.
template <class T, class Visit>
bool walkFromLast(const TFrailArray<T>& listeners, Visit visit) {
  // A listener that has ended can't be asked for its identity any more.
  struct CStep {
    T* listener;
    const IBase* identity;
  };
  std::vector<CStep> steps;
  for (int i = listeners.getCount() - 1; i >= 0; --i)
    if (T* listener = listeners.get(i).get()) steps.push_back({listener, listener});
  for (const CStep& step : steps) {
    if (!listeners.contains(step.identity)) continue;
    const PFrail<T> held(step.listener, true);
    if constexpr (std::is_void_v<decltype(visit(*held))>) {
      visit(*held);
    } else if (visit(*held)) {
      return true;
    }
  }
  return false;
}

}  // namespace orlo
