#pragma once

#include "foundation/SimpleArray.h"

#include <limits>

namespace orlo {

/// An array that lets go of what is removed. It does so when everything else is in its place, one element after the
/// other, so that an object that ends may use the array that it was in.
template <class E>
class TCleaningSimpleArray : public TSimpleArray<E> {
public:
  using TSimpleArray<E>::TSimpleArray;

  void removeAt(int index, int number = 1) {
    TSimpleArray<E>::removeAt(index, number);
    const int removedEnd = this->getCount() + number;
    const int end = pending_ > 0 ? std::max(position_ + pending_, removedEnd) : removedEnd;
    position_ = this->getCount();
    pending_ = end - position_;
    clean(std::numeric_limits<int>::max());
  }
  void clear() { removeAt(0, this->getCount()); }

  /// Sets up to that many of the elements that wait for it to E(), and returns how many.
  int clean(int number) {
    int cleaned = 0;
    for (; cleaned < number && findPending(); ++cleaned) {
      [[maybe_unused]] const E old = std::exchange(this->begin()[position_], E());
      ++position_;
      --pending_;
    }
    return cleaned;
  }

private:
  /// False if nothing waits. What has been added meanwhile stands in places that have waited.
  bool findPending() {
    const int end = std::min(position_ + pending_, this->getCapacity());
    position_ = std::min(std::max(position_, this->getCount()), end);
    pending_ = end - position_;
    return pending_ > 0;
  }

  int position_ = 0;
  int pending_ = 0;
};

}  // namespace orlo
