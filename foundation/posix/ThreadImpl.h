#pragma once

#include "foundation/Error.h"
#include "foundation/Thread.h"
#include "foundation/ThreadLocalStorageManager.h"
#include "foundation/ThreadManager.h"

#include <condition_variable>
#include <mutex>
#include <pthread.h>
#include <sys/types.h>

namespace orlo::posix {

/// Lives on the heap, where its thread keeps it until it ends: made with makeObject.
///
/// Priorities are nice values, which are a thread's own here: lowest and low are 10 and 5 above the value that the
/// thread started with, normal is that value, high and highest are 5 and 10 below it; idle is the policy SCHED_IDLE.
class CThreadImpl final : public CObject, public IThread {
public:
  /// Throws CError.
  explicit CThreadImpl(P<IAction> action);
  ~CThreadImpl() override;
  CThreadImpl(const CThreadImpl&) = delete;
  CThreadImpl& operator=(const CThreadImpl&) = delete;

  bool waitForEnd(std::uint32_t milliseconds) override;
  void setPriority(ThreadPriority priority) override;
  P<CException> getError() override;

private:
  static void* enter(void* thread);
  void run();
  void begin();
  void end();

  pthread_t thread_{};
  pid_t id_ = 0;
  int startNice_ = 0;
  bool ended_ = false;
  bool joined_ = false;
  P<IAction> action_;
  P<CException> error_;
  /// Held, so that the thread can clean its slots while the singletons go.
  P<CThreadLocalStorageManager> slots_ = getThreadLocalStorageManager();
  std::mutex mutex_;
  std::mutex joinMutex_;
  std::condition_variable changed_;
};

}  // namespace orlo::posix
