#pragma once

#include <cstddef>
#include <new>
#include <type_traits>
#include <utility>

namespace orlo {

namespace detail {

/// What P and PC share: a counted reference in one pointer. The null pointer is allowed and nothing checks for it.
template <class T>
class TCounted {
public:
  TCounted() = default;
  TCounted(std::nullptr_t) {}
  TCounted(T* object) : object_(object) {
    if (object_) object_->addRef();
  }
  TCounted(const TCounted& other) : TCounted(other.object_) {}
  TCounted(TCounted&& other) noexcept : object_(other.detach()) {}
  ~TCounted() {
    if (object_) object_->release();
  }

  TCounted& operator=(const TCounted& other) {
    TCounted(other).swap(*this);
    return *this;
  }
  TCounted& operator=(TCounted&& other) noexcept {
    TCounted(std::move(other)).swap(*this);
    return *this;
  }

  /// Takes over a reference that the caller holds: the count stays as it is.
  void attach(T* object) {
    T* old = std::exchange(object_, object);
    if (old) old->release();
  }
  /// Gives the reference to the caller, who must release it.
  [[nodiscard]] T* detach() noexcept { return std::exchange(object_, nullptr); }

  T* get() const noexcept { return object_; }
  T* operator->() const noexcept { return object_; }
  T& operator*() const noexcept { return *object_; }
  explicit operator bool() const noexcept { return object_ != nullptr; }

  void swap(TCounted& other) noexcept { std::swap(object_, other.object_); }

private:
  T* object_ = nullptr;
};

template <class T, class U>
bool operator==(const TCounted<T>& a, const TCounted<U>& b) {
  return a.get() == b.get();
}
template <class T>
bool operator==(const TCounted<T>& a, std::nullptr_t) {
  return a.get() == nullptr;
}

}  // namespace detail

/// Counted reference to a changeable object.
template <class T>
class P : public detail::TCounted<T> {
public:
  using detail::TCounted<T>::TCounted;
  P() = default;
  template <class U>
  requires std::is_convertible_v<U*, T*> P(const P<U>& other) : detail::TCounted<T>(other.get()) {}
  template <class U>
  requires std::is_convertible_v<U*, T*> P(P<U>&& other) { this->attach(other.detach()); }
};

/// Counted reference to an object that its holder only reads. P converts to PC, never back.
template <class T>
class PC : public detail::TCounted<const T> {
public:
  using detail::TCounted<const T>::TCounted;
  PC() = default;
  template <class U>
  requires std::is_convertible_v<const U*, const T*> PC(const PC<U>& other) : detail::TCounted<const T>(other.get()) {}
  template <class U>
  requires std::is_convertible_v<const U*, const T*> PC(const P<U>& other) : detail::TCounted<const T>(other.get()) {}
  template <class U>
  requires std::is_convertible_v<const U*, const T*> PC(P<U>&& other) { this->attach(other.detach()); }
};

/// A pointer that is counted only if it is strong. A frail one observes: nothing tells it that its object has died,
/// so its holder takes it out in time.
template <class T>
class PFrail {
public:
  PFrail() = default;
  PFrail(T* object, bool strong) : object_(object), strong_(strong) { acquire(); }
  PFrail(const PFrail& other) : PFrail(other.object_, other.strong_) {}
  PFrail(PFrail&& other) noexcept
      : object_(std::exchange(other.object_, nullptr)), strong_(std::exchange(other.strong_, true)) {}
  ~PFrail() { drop(); }

  PFrail& operator=(const PFrail& other) {
    PFrail(other).swap(*this);
    return *this;
  }
  PFrail& operator=(PFrail&& other) noexcept {
    PFrail(std::move(other)).swap(*this);
    return *this;
  }

  void clear() {
    drop();
    object_ = nullptr;
  }

  bool isStrong() const noexcept { return strong_; }
  T* get() const noexcept { return object_; }
  T* operator->() const noexcept { return object_; }
  T& operator*() const noexcept { return *object_; }
  explicit operator bool() const noexcept { return object_ != nullptr; }

  void swap(PFrail& other) noexcept {
    std::swap(object_, other.object_);
    std::swap(strong_, other.strong_);
  }

private:
  void acquire() const {
    if (strong_ && object_) object_->addRef();
  }
  void drop() const {
    if (strong_ && object_) object_->release();
  }

  T* object_ = nullptr;
  bool strong_ = true;
};

/// Makes an object that only the result refers to. Null if there is no memory for it.
template <class T, class... Args>
P<T> makeObject(Args&&... args) {
  P<T> result;
  result.attach(new (std::nothrow) T(std::forward<Args>(args)...));
  return result;
}

}  // namespace orlo
