#include "foundation/posix/MutexImpl.h"

#include <chrono>

namespace orlo::posix {

bool CMutexImpl::tryLock(std::uint32_t milliseconds) {
  if (milliseconds == 0) return mutex_.try_lock();
  return mutex_.try_lock_for(std::chrono::milliseconds(milliseconds));
}

}  // namespace orlo::posix
