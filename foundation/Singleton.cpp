#include "foundation/Singleton.h"

#include "foundation/Mutex.h"
#include "foundation/ThreadManager.h"

#include <chrono>
#include <cstdlib>
#include <stdexcept>
#include <thread>

namespace orlo {

namespace {

CSingletonRecord* lastMade = nullptr;

// Never released: singletons may still be asked for while the module is unloaded.
IMutex& globalLock() {
  static P<IMutex>& lock = *new P<IMutex>(getMutexFactory()->createMutex());
  return *lock;
}

// The thread manager is a singleton as well: a thread that has to wait for it sleeps without it.
void sleepOneMs() {
  thread_local bool asking = false;
  if (asking) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return;
  }
  asking = true;
  getThreadManager()->yield(true);
  asking = false;
}

}  // namespace

void CSingletonRecord::makeReady(void (*build)(CSingletonRecord*, void*), void* context,
                                 void (*release)(CSingletonRecord*)) {
  if (!entered_.exchange(true)) {
    CMutexLock lock(&globalLock());
    buildOnce(build, context, release);
  }
  while (!isReady()) {
    // The thread that entered first may want the lock that this one holds, while it makes another singleton.
    if (globalLock().tryLock(0)) {
      CMutexLock lock(&globalLock(), std::adopt_lock);
      buildOnce(build, context, release);
    } else {
      sleepOneMs();
    }
  }
}

void CSingletonRecord::buildOnce(void (*build)(CSingletonRecord*, void*), void* context,
                                 void (*release)(CSingletonRecord*)) {
  if (isReady()) return;
  if (building_) throw std::logic_error("a singleton was asked for while it was being made, by what makes it");
  struct CBuilding {
    explicit CBuilding(bool& flag) : flag_(flag) { flag_ = true; }
    ~CBuilding() { flag_ = false; }
    bool& flag_;
  } building(building_);
  words_.clear();
  build(this, context);
  release_ = release;
  before_ = lastMade;
  lastMade = this;
  std::atexit(&releaseLast);
  words_.set();
}

void CSingletonRecord::releaseLast() {
  CSingletonRecord* record = nullptr;
  {
    CMutexLock lock(&globalLock());
    record = lastMade;
    lastMade = record->before_;
    record->words_.clear();
  }
  record->release_(record);
}

}  // namespace orlo
