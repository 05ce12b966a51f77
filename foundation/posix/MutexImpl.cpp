#include "foundation/posix/MutexImpl.h"

#include "foundation/posix/TimedTry.h"

namespace orlo::posix {

bool CMutexImpl::tryLock(std::uint32_t milliseconds) {
  return tryFor(milliseconds, [this] { return mutex_.try_lock(); });
}

}  // namespace orlo::posix
