#include "authed/data/WorkerThread.h"

#include <wx/translation.h>

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
  /// False once the process ends.
  bool Add(CWorkerThread* thread) {
    const std::lock_guard guard(lock_);
    if (isOver_) return false;
    running_.push_back(thread);
    ++count_;
    return true;
  }
  /// Nobody stops it any more.
  void Remove(CWorkerThread* thread) {
    const std::lock_guard guard(lock_);
    running_.erase(std::find(running_.begin(), running_.end(), thread));
  }
  void CountOut() {
    const std::lock_guard guard(lock_);
    if (--count_ == 0) none_.notify_all();
  }
  void StopAll() {
    const std::lock_guard guard(lock_);
    isOver_ = true;
    for (CWorkerThread* const thread : running_) thread->RequestStop();
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
  bool isOver_ = false;
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

/// What the toolkit notes of each thread, it notes in something that is made for the first one.
bool MakeNotesOfThreads() {
  return wxTranslations::GetUntranslatedString(wxString()).empty();
}

/// The end of the process comes by here before it is where the things are that threads need, since those have been
/// made before. Threads that nothing stops may come by ever after.
CThreads& Threads() {
  static auto* const threads = new CThreads;
  static const bool areNoted = MakeNotesOfThreads();
  static const CEndOfProcess end(*threads);
  static_cast<void>(areNoted);
  return *threads;
}

/// Ends with its thread, after all that the toolkit does there.
struct CCountedOut {
  CCountedOut() = default;
  CCountedOut(const CCountedOut&) = delete;
  CCountedOut& operator=(const CCountedOut&) = delete;
  ~CCountedOut() { Threads().CountOut(); }
};

}  // namespace

CWorkerThread::CWorkerThread(const orlo::P<orlo::ISignal>& stopRequest)
    : wxThread(wxTHREAD_DETACHED), stopRequest_(stopRequest) {}

bool CWorkerThread::Start(std::unique_ptr<CWorkerThread>& thread) {
  if (!Threads().Add(thread.get())) return false;
  if (thread->Create() == wxTHREAD_NO_ERROR && thread->Run() == wxTHREAD_NO_ERROR)
    return static_cast<void>(thread.release()), true;
  Threads().Remove(thread.get());
  Threads().CountOut();
  return false;
}

void CWorkerThread::OnExit() {
  Threads().Remove(this);
  thread_local const CCountedOut atTheVeryEnd;
  static_cast<void>(atTheVeryEnd);
}

std::size_t CWorkerThread::GetCount() {
  return Threads().GetCount();
}

bool CWorkerThread::WaitForNone(int seconds) {
  return Threads().WaitForNone(seconds);
}

}  // namespace authed::data
