#pragma once

#include "foundation/FrailArray.h"
#include "foundation/Object.h"
#include "foundation/ObjectDestructListener.h"
#include "foundation/posix/MessageQueue.h"

#include <cstdint>

namespace orlo::posix {

/// Brings posted calls onto the thread that created it, which gets them while it processes its messages. Only post()
/// may be called from other threads. Listeners are not kept alive.
class CMessageWindow : public CObject {
public:
  class IMessageListener : public virtual IBase {
  public:
    /// True if the message is handled: no further listener gets it.
    virtual bool onMessage(CMessageWindow* window, std::uint32_t message, std::uintptr_t wParam,
                           std::intptr_t lParam) = 0;
  };

  /// Throws CError.
  CMessageWindow();
  ~CMessageWindow() override;
  CMessageWindow(const CMessageWindow&) = delete;
  CMessageWindow& operator=(const CMessageWindow&) = delete;

  /// From any thread, as long as the window lives. False if CMessageQueue::kMaxPosts messages wait already.
  bool post(std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam);

  /// Those who came last are asked first.
  void addListener(IMessageListener* listener) { listeners_.addFrail(listener); }
  void removeListener(IMessageListener* listener) { listeners_.remove(listener); }
  /// Told before the window goes, those who came last first.
  void addDestructListener(IObjectDestructListener* listener) { destructListeners_.addFrail(listener); }
  void removeDestructListener(IObjectDestructListener* listener) { destructListeners_.remove(listener); }

  /// A file that is readable while something waits for a window of this thread.
  int getHandle() const { return queue_->getHandle(); }

  /// For the queue.
  virtual void onMessage(const CMessage& message);

protected:
  CMessageQueue& queue() { return *queue_; }

private:
  P<CMessageQueue> queue_;
  TFrailArray<IMessageListener> listeners_;
  TFrailArray<IObjectDestructListener> destructListeners_;
};

}  // namespace orlo::posix
