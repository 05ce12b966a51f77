#include "foundation/posix/SignalImpl.h"

#include <chrono>

namespace orlo::posix {

void CSignalImpl::set() {
  const std::lock_guard lock(mutex_);
  set_ = true;
  changed_.notify_all();
}

void CSignalImpl::reset() {
  const std::lock_guard lock(mutex_);
  set_ = false;
}

void CSignalImpl::wait() {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return set_; });
}

bool CSignalImpl::wait(std::uint32_t milliseconds) {
  std::unique_lock lock(mutex_);
  return changed_.wait_for(lock, std::chrono::milliseconds(milliseconds), [this] { return set_; });
}

}  // namespace orlo::posix
