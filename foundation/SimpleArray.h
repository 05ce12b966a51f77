#pragma once

#include "foundation/Object.h"

#include <algorithm>
#include <cassert>
#include <memory>
#include <type_traits>
#include <utility>

namespace orlo {

/// How the arrays of pointers grow, whatever they hold.
class CSimpleArrayTemplateBase : public CObject {
public:
  /// The growth step of all arrays here.
  static constexpr int kGrowStep = 10;

protected:
  /// The capacity of an array that gets so many more elements and has no room for them: the greater of count + more and
  /// capacity + growStep. Throws std::length_error if that many elements cannot be counted.
  static int grownCapacity(int capacity, int count, int growStep, int more);
  /// The elements that a block has room for when the old one is too small. It is larger by half, so that capacities
  /// that grow by small steps copy each element a few times only.
  static int grownBlock(int block, int capacity);
};

/// A list of pointers or other values, counted from 0. What lies behind the count, up to the capacity, is constructed
/// and keeps the value it had until it is overwritten. Indices are not checked. No locks.
template <class E>
class TSimpleArray : public CSimpleArrayTemplateBase {
  static_assert(std::is_nothrow_default_constructible_v<E> && std::is_nothrow_move_constructible_v<E>);

public:
  explicit TSimpleArray(int growStep = kGrowStep) : growStep_(growStep) {}
  TSimpleArray(const TSimpleArray&) = delete;
  TSimpleArray& operator=(const TSimpleArray&) = delete;
  ~TSimpleArray() override { dispose(data_, capacity_, block_); }

  int getCount() const { return count_; }
  int getCapacity() const { return capacity_; }
  int getGrowStep() const { return growStep_; }
  bool isEmpty() const { return count_ == 0; }

  E& operator[](int index) {
    assert(index >= 0 && index < count_);
    return data_[index];
  }
  const E& operator[](int index) const {
    assert(index >= 0 && index < count_);
    return data_[index];
  }
  E* begin() { return data_; }
  E* end() { return data_ + count_; }
  const E* begin() const { return data_; }
  const E* end() const { return data_ + count_; }

  void add(E element) { insert(count_, std::move(element)); }

  /// index: 0 to the count.
  void insert(int index, E element) {
    assert(index >= 0 && index <= count_);
    grow(1);
    // What the free place held dies when the array is in order again: its end may come back here.
    [[maybe_unused]] const E old = std::exchange(data_[count_], E());
    std::move_backward(data_ + index, data_ + count_, data_ + count_ + 1);
    data_[index] = std::move(element);
    ++count_;
  }

  /// What is removed stands behind the count afterwards.
  void removeAt(int index, int number = 1) {
    assert(index >= 0 && number >= 0 && index <= count_ - number);
    std::rotate(data_ + index, data_ + index + number, data_ + count_);
    count_ -= number;
  }
  void clear() { removeAt(0, count_); }

  void swap(int a, int b) { std::swap((*this)[a], (*this)[b]); }

  /// A capacity below the count cuts the tail.
  void setCapacity(int capacity) {
    assert(capacity >= 0);
    if (capacity > capacity_ && capacity <= block_)
      extend(capacity);
    else if (capacity != capacity_)
      moveTo(capacity, capacity);
  }

private:
  void grow(int more) {
    if (more <= capacity_ - count_) return;
    const int capacity = grownCapacity(capacity_, count_, growStep_, more);
    if (capacity <= block_)
      extend(capacity);
    else
      moveTo(capacity, grownBlock(block_, capacity));
  }
  void extend(int capacity) {
    std::uninitialized_value_construct(data_ + capacity_, data_ + capacity);
    capacity_ = capacity;
  }
  void moveTo(int capacity, int block) {
    E* data = block > 0 ? std::allocator<E>().allocate(static_cast<std::size_t>(block)) : nullptr;
    const int kept = std::min(capacity, capacity_);
    std::uninitialized_move(data_, data_ + kept, data);
    std::uninitialized_value_construct(data + kept, data + capacity);
    E* const oldData = std::exchange(data_, data);
    const int oldCapacity = std::exchange(capacity_, capacity);
    const int oldBlock = std::exchange(block_, block);
    count_ = std::min(count_, capacity);
    dispose(oldData, oldCapacity, oldBlock);
  }
  static void dispose(E* data, int capacity, int block) {
    if (!data) return;
    std::destroy(data, data + capacity);
    std::allocator<E>().deallocate(data, static_cast<std::size_t>(block));
  }

  E* data_ = nullptr;
  int capacity_ = 0;
  int count_ = 0;
  int growStep_;
  /// Elements that the memory has room for; those behind the capacity are not constructed.
  int block_ = 0;
};

}  // namespace orlo
