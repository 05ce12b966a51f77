#include "authed/data/WorkerThread.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <vector>

namespace authed::data {

namespace {

/// The threads of the process.
class CThreads {
public:
  void Enter(CWorkerThread* thread) {
    const std::lock_guard guard(lock_);
    running_.push_back(thread);
  }
  void Leave(CWorkerThread* thread) {
    const std::lock_guard guard(lock_);
    running_.erase(std::remove(running_.begin(), running_.end(), thread), running_.end());
  }
  void StopAll() {
    const std::lock_guard guard(lock_);
    for (CWorkerThread* const thread : running_) thread->RequestStop();
  }

  void CountIn() {
    const std::lock_guard guard(lock_);
    ++count_;
  }
  void CountOut() {
    const std::lock_guard guard(lock_);
    if (--count_ == 0) none_.notify_all();
  }
  std::size_t GetCount() {
    const std::lock_guard guard(lock_);
    return count_;
  }
  bool WaitForNone(int seconds) {
    std::unique_lock guard(lock_);
    return none_.wait_for(guard, std::chrono::seconds(seconds), [this] { return count_ == 0; });
  }

private:
  std::mutex lock_;
  std::condition_variable none_;
  std::vector<CWorkerThread*> running_;
  std::size_t count_ = 0;
};

struct CEndOfProcess {
  explicit CEndOfProcess(CThreads& all) : threads(all) {}
  CEndOfProcess(const CEndOfProcess&) = delete;
  CEndOfProcess& operator=(const CEndOfProcess&) = delete;
  ~CEndOfProcess() {
    threads.StopAll();
    threads.WaitForNone(kLongestWaitForThreads);
  }

  CThreads& threads;
};

/// Known from the first thread on, so that the end of the process is noticed here before it is where the things are
/// that the threads were made with. Threads that nothing stops may come by ever after.
CThreads& Threads() {
  static auto* const threads = new CThreads;
  static const CEndOfProcess end(*threads);
  return *threads;
}

}  // namespace

CWorkerThread::CWorkerThread(const orlo::P<orlo::ISignal>& stopRequest)
    : wxThread(wxTHREAD_DETACHED), stopRequest_(stopRequest) {
  Threads().CountIn();
}

CWorkerThread::~CWorkerThread() {
  Threads().CountOut();
}

bool CWorkerThread::Start(std::unique_ptr<CWorkerThread>& thread) {
  if (thread->Create() != wxTHREAD_NO_ERROR) return false;
  Threads().Enter(thread.get());
  if (thread->Run() == wxTHREAD_NO_ERROR) return static_cast<void>(thread.release()), true;
  thread->Leave();
  return false;
}

void CWorkerThread::Leave() {
  Threads().Leave(this);
}

std::size_t CWorkerThread::GetCount() {
  return Threads().GetCount();
}

bool CWorkerThread::WaitForNone(int seconds) {
  return Threads().WaitForNone(seconds);
}

}  // namespace authed::data
