#pragma once

#include "foundation/Pointer.h"
#include "foundation/Signal.h"

#include <wx/thread.h>

#include <cstddef>
#include <memory>

namespace authed::data {

/// When the process ends it waits for worker threads, so many seconds at most.
constexpr int kLongestWaitForThreads = 10;

/// A thread that nobody waits for. It deletes itself when it has run out, and from then on may not be touched. At the
/// end of the process threads that still run are asked to stop, and waited for before anything is taken from under
/// them.
class CWorkerThread : public wxThread {
public:
  /// The signal is set to stop the thread. It may be kept by others, who may outlive the thread.
  explicit CWorkerThread(const orlo::P<orlo::ISignal>& stopRequest);

  virtual void RequestStop() { stopRequest_->set(); }
  bool IsStopRequested() const { return stopRequest_->wait(0); }

  /// Lets the thread run by itself. False, and it is still there, if the system has no more threads or the process
  /// ends.
  static bool Start(std::unique_ptr<CWorkerThread>& thread);
  /// Those that there are in the process.
  static std::size_t GetCount();
  /// Whether none were left within that time.
  static bool WaitForNone(int seconds);

private:
  void OnExit() override;

  const orlo::P<orlo::ISignal> stopRequest_;
};

}  // namespace authed::data
