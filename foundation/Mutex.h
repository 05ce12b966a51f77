#pragma once

#include "foundation/Base.h"
#include "foundation/Pointer.h"

#include <cstdint>
#include <mutex>
#include <utility>

namespace orlo {

/// A lock that its thread may take again; it is free when each lock has been answered by an unlock.
class IMutex : public virtual IBase {
public:
  virtual void lock() = 0;
  virtual void unlock() = 0;
  /// Whether the lock was taken within that time. 0 does not wait.
  virtual bool tryLock(std::uint32_t milliseconds) = 0;
};

class IMutexFactory : public virtual IBase {
public:
  virtual P<IMutex> createMutex() = 0;
  /// A lock shared by all processes of this user that ask for the name. What a dead process left locked is taken over.
  /// Throws CException if it can't be made.
  virtual P<IMutex> createGlobalMutex(const String& name) = 0;
};

/// The one service that is no guarded singleton, since their guard comes from it. It is never released.
P<IMutexFactory>& getMutexFactory();

/// Holds a mutex, and a reference to it, for a scope.
class CMutexLock {
public:
  explicit CMutexLock(P<IMutex> mutex) : mutex_(std::move(mutex)) { mutex_->lock(); }
  /// For a mutex that the caller has locked already.
  CMutexLock(P<IMutex> mutex, std::adopt_lock_t) : mutex_(std::move(mutex)) {}
  ~CMutexLock() { mutex_->unlock(); }
  CMutexLock(const CMutexLock&) = delete;
  CMutexLock& operator=(const CMutexLock&) = delete;

private:
  P<IMutex> mutex_;
};

}  // namespace orlo
