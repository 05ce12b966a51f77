#pragma once

#include "foundation/Mutex.h"
#include "foundation/Object.h"
#include "foundation/String.h"

#include <memory>

namespace orlo::posix {

class CSharedMemory;

/// A lock that all processes of this user share by its name. It belongs to a thread, which may take it again; what a
/// dead thread or process left locked is free. It must not go while it is locked.
class CGlobalMutexImpl : public CObject, public IMutex {
public:
  /// Throws CException.
  explicit CGlobalMutexImpl(const String& name);
  ~CGlobalMutexImpl() override;

  /// Both throw CException if the lock can't be used.
  void lock() override;
  bool tryLock(std::uint32_t milliseconds) override;
  void unlock() override;

private:
  bool finishLock(int result);

  String name_;
  std::unique_ptr<CSharedMemory> memory_;
};

}  // namespace orlo::posix
