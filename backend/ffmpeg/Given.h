#pragma once

#include "foundation/Base.h"
#include "foundation/String.h"

#include <atomic>
#include <cstdint>

namespace vantra::ffmpeg {

/// The count of what the functions of the library give: it begins with 0, and who asked takes the first reference.
template <class Interface>
class TGiven : public virtual Interface {
public:
  void addRef() const final { count_.fetch_add(1, std::memory_order_relaxed); }
  void release() const final {
    if (count_.fetch_sub(1, std::memory_order_acq_rel) == 1) delete this;
  }
  bool queryCast(const std::type_info&, orlo::IBase**, orlo::CastLink**) override { return true; }

protected:
  TGiven() = default;
  TGiven(const TGiven&) = delete;
  TGiven& operator=(const TGiven&) = delete;
  ~TGiven() override = default;

private:
  mutable std::atomic<std::int32_t> count_{0};
};

}  // namespace vantra::ffmpeg
