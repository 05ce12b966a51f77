#include "foundation/posix/ThreadManager.h"

#include "foundation/Singleton.h"
#include "foundation/posix/ThreadImpl.h"

#include <chrono>
#include <thread>
#include <unistd.h>

namespace orlo {

namespace posix {

P<IThread> CThreadManager::createThread(P<IAction> action) {
  return makeObject<CThreadImpl>(std::move(action));
}

void CThreadManager::yield(bool sleepAtLeastOneMs) {
  if (sleepAtLeastOneMs) {
    sleep(1);
  } else {
    std::this_thread::yield();
  }
}

void CThreadManager::sleep(std::uint32_t milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

std::uint32_t CThreadManager::getCurrentThreadId() {
  return static_cast<std::uint32_t>(gettid());
}

}  // namespace posix

P<IThreadManager>& getThreadManager() {
  static TSingleton<IThreadManager> singleton;
  return singleton.get([] { return makeObject<posix::CThreadManager>(); });
}

}  // namespace orlo
