#pragma once

#include "backend/handler/Backend.h"

#include <atomic>
#include <cstdint>
#include <stdexcept>

#if __has_include("foundation/String.h")
#include "foundation/String.h"
#else
namespace orlo {

/// A backend that is built from the installed headers alone has no texts of the foundation, and can return none.
class String {
public:
  String(const String&);
  ~String();
};

}  // namespace orlo
#endif

namespace vantra {

/// What all objects of a backend have in common. The count begins at 0: who asked for the object takes the first
/// reference.
template <class Interface>
class TBackendObject : public virtual Interface {
public:
  void addRef() const final { count_.fetch_add(1, std::memory_order_relaxed); }
  void release() const final {
    if (count_.fetch_sub(1, std::memory_order_acq_rel) == 1) delete this;
  }
  bool queryCast(const std::type_info&, orlo::IBase**, orlo::CastLink**) override { return true; }
  /// For messages of the foundation, which never come to speak of a backend's objects.
  orlo::String getDescription() const override { throw std::logic_error("An object of a backend"); }

protected:
  TBackendObject() = default;
  TBackendObject(const TBackendObject&) = delete;
  TBackendObject& operator=(const TBackendObject&) = delete;
  ~TBackendObject() override = default;

private:
  mutable std::atomic<std::int32_t> count_{0};
};

}  // namespace vantra
