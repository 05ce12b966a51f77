#pragma once

#include "foundation/Base.h"

#include <atomic>
#include <cstdint>

namespace orlo {

/// A reference count in one 32-bit word. A new object has the count 1, and that reference belongs to its creator;
/// an object on the stack or in a member therefore never reaches zero through counted pointers.
class CReferencable {
public:
  CReferencable() = default;
  /// Takes the count along, as an error does that is copied when thrown.
  CReferencable(const CReferencable& other) : count_(other.count_.load(std::memory_order_relaxed)) {}
  CReferencable& operator=(const CReferencable&) { return *this; }
  virtual ~CReferencable() = default;

  virtual void addRef() const { count_.fetch_add(1, std::memory_order_relaxed); }

  virtual void release() const {
    if (count_.fetch_sub(1, std::memory_order_acq_rel) == 1) end();
  }

  /// The one place where an object ends. Override it for an object that outlives its last reference.
  virtual void destroy() const;

protected:
  std::int32_t referenceCount() const { return count_.load(std::memory_order_relaxed); }
  /// For a copy that begins a life of its own.
  void restartCount() { count_.store(1, std::memory_order_relaxed); }

private:
  void end() const;

  mutable std::atomic<std::int32_t> count_{1};
};

/// First base of every class of the object model. Counting is final here, so that a pointer to a class (rather than to
/// an interface) counts without a virtual call; what differs from class to class is destroy().
class CObject : public CReferencable, public virtual IBase {
public:
  void addRef() const final { CReferencable::addRef(); }
  void release() const final { CReferencable::release(); }
  bool queryCast(const std::type_info& target, IBase** outer, CastLink** aggregates) override;
  String getDescription() const override;
};

}  // namespace orlo
