#pragma once

#include "foundation/posix/FileHandle.h"
#include "foundation/posix/MessageWindow.h"

namespace orlo::posix {

/// Ticks on the thread that created it, while that processes its messages. A listener that takes longer than the
/// interval finds one tick afterwards, not one for each that it missed. For its own thread alone.
class CWindowTimer : public CMessageWindow, private ITickSource {
public:
  class ITimerListener : public virtual IBase {
  public:
    virtual void onTimer(CWindowTimer* timer) = 0;
  };

  /// What a tick is as a message, the timer's number in wParam.
  static constexpr std::uint32_t kTimerMessage = 0x0113;
  static constexpr std::uintptr_t kTimerId = 17;

  CWindowTimer() = default;
  ~CWindowTimer() override;

  /// Milliseconds, 1 at least, else CInvalidArgError. 100 at first. A timer that runs starts again.
  void setInterval(std::int32_t milliseconds);
  std::int32_t getInterval() const { return interval_; }

  /// The first tick comes an interval later. A timer that runs starts again, and forgets a tick that waits. If the
  /// system has no timer left it stays stopped.
  void start();
  /// No tick comes afterwards, not even one that waits.
  void stop();
  bool isRunning() const { return id_ != 0; }

  using CMessageWindow::addListener;
  using CMessageWindow::removeListener;
  /// Those who came last are told first.
  void addListener(ITimerListener* listener) { listeners_.addFrail(listener); }
  void removeListener(ITimerListener* listener) { listeners_.remove(listener); }

  void onMessage(const CMessage& message) override;

private:
  int getFile() const override { return file_.get(); }
  bool takeTick(CMessage& message) override;
  bool set(std::int32_t milliseconds);

  std::int32_t interval_ = 100;
  std::uintptr_t id_ = 0;
  CFileHandle file_;
  TFrailArray<ITimerListener> listeners_;
};

}  // namespace orlo::posix
