#pragma once

#include "foundation/Mutex.h"
#include "foundation/Object.h"

#include <mutex>

namespace orlo::posix {

class CMutexImpl : public CObject, public IMutex {
public:
  void lock() override { mutex_.lock(); }
  void unlock() override { mutex_.unlock(); }
  bool tryLock(std::uint32_t milliseconds) override;

private:
  std::recursive_mutex mutex_;
};

}  // namespace orlo::posix
