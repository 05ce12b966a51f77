#include "foundation/posix/WindowTimer.h"

#include "foundation/Error.h"
#include "foundation/ListenerWalk.h"
#include "foundation/StringLocalizer.h"

#include <sys/timerfd.h>

namespace orlo::posix {

CWindowTimer::~CWindowTimer() {
  if (!file_) return;
  stop();
  queue().removeSource(this);
}

void CWindowTimer::setInterval(std::int32_t milliseconds) {
  if (milliseconds < 1) {
    throw CInvalidArgError(this, nullptr, "setInterval",
                           localize("orlo.win32.CWindowTimer.IntervalGEZero", "window timer intervals have to be >=0"));
  }
  interval_ = milliseconds;
  if (isRunning()) start();
}

void CWindowTimer::start() {
  if (!file_) {
    file_ = CFileHandle(timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK));
    if (!file_) return;
    queue().addSource(this);
  }
  stop();
  if (set(interval_)) id_ = kTimerId;
}

void CWindowTimer::stop() {
  id_ = 0;
  if (file_) set(0);
  queue().removeMessages(this, kTimerMessage);
}

void CWindowTimer::onMessage(const CMessage& message) {
  if (message.message != kTimerMessage) {
    CMessageWindow::onMessage(message);
    return;
  }
  CMessage waiting;
  takeTick(waiting);
  queue().removeMessages(this, kTimerMessage);
  if (isRunning()) walkFromLast(listeners_, [this](ITimerListener& listener) { listener.onTimer(this); });
}

bool CWindowTimer::takeTick(CMessage& message) {
  std::uint64_t ticks = 0;
  if (read(file_.get(), &ticks, sizeof ticks) != sizeof ticks) return false;
  message = {this, kTimerMessage, kTimerId, 0};
  return true;
}

// Setting a timer takes back the ticks that wait in it.
bool CWindowTimer::set(std::int32_t milliseconds) {
  if (!queue().isOurs()) return false;
  const timespec time{milliseconds / 1000, milliseconds % 1000 * 1000000L};
  const itimerspec both{time, time};
  return timerfd_settime(file_.get(), 0, &both, nullptr) == 0;
}

}  // namespace orlo::posix
