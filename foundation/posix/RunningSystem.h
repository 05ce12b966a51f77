#pragma once

#include "foundation/MessagePump.h"
#include "foundation/WorkerManager.h"
#include "foundation/posix/MessageWindow.h"
#include "foundation/posix/WindowTimer.h"

namespace orlo::posix {

/// The running side of the system: it processes the messages of the thread that made it, and is the root of all worker
/// managers, which a timer of its own serves.
class CRunningSystem : public CWorkerManager, public virtual IMessagePump, public CWindowTimer::ITimerListener {
public:
  /// Throws CError.
  CRunningSystem();
  ~CRunningSystem() override;

  bool processMessage() override { return processMessage(0); }
  bool processMessage(std::uint32_t milliseconds) override;
  bool processAllMessages() override;
  void addMessageHandler(ISystemMessageHandler* handler) override { messageHandlers_.addFrail(handler); }
  void removeMessageHandler(ISystemMessageHandler* handler) override { messageHandlers_.remove(handler); }

  /// Milliseconds between two passes of the workers: what they want, but 20 at least, and 100 if they want nothing.
  std::int32_t getPassInterval() const { return workerTimer_->getInterval(); }

  void onTimer(CWindowTimer* timer) override;

protected:
  void onIntervalChanged() override;

private:
  CMessageQueue::Filter handlersFirst();

  TFrailArray<ISystemMessageHandler> messageHandlers_;
  P<CMessageQueue> queue_ = CMessageQueue::ofThisThread();
  P<CWindowTimer> workerTimer_;
};

}  // namespace orlo::posix
