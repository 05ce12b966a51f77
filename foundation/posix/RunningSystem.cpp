#include "foundation/posix/RunningSystem.h"

#include "foundation/ListenerWalk.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>

namespace orlo::posix {

namespace {

constexpr std::int32_t kIdleInterval = 100;
constexpr std::int32_t kLeastInterval = 20;

std::int32_t passIntervalFor(std::int32_t wanted) {
  return wanted == 0 ? kIdleInterval : std::max(wanted, kLeastInterval);
}

unsigned millisecondsSinceStart() {
  using namespace std::chrono;
  return static_cast<unsigned>(duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

}  // namespace

CRunningSystem::CRunningSystem() : workerTimer_(makeObject<CWindowTimer>()) {
  workerTimer_->addListener(this);
  workerTimer_->setInterval(passIntervalFor(getInterval()));
  workerTimer_->start();
  std::srand(millisecondsSinceStart());
}

CRunningSystem::~CRunningSystem() {
  workerTimer_->stop();
  workerTimer_->removeListener(this);
}

bool CRunningSystem::processMessage(std::uint32_t milliseconds) {
  return queue_->processMessage(milliseconds, handlersFirst());
}

bool CRunningSystem::processAllMessages() {
  return queue_->processAllMessages(handlersFirst());
}

void CRunningSystem::onTimer(CWindowTimer*) {
  work();
}

// A timer that starts again begins a new interval, so it is left alone when nothing changes for it: workers that come
// and go all the time would keep it from ticking.
void CRunningSystem::onIntervalChanged() {
  const std::int32_t interval = passIntervalFor(getInterval());
  if (interval != workerTimer_->getInterval()) workerTimer_->setInterval(interval);
}

CMessageQueue::Filter CRunningSystem::handlersFirst() {
  return [this](const CMessage& message) {
    return walkFromLast(messageHandlers_, [&message](ISystemMessageHandler& handler) {
      return handler.onSystemMessage(message.window, message.message, message.wParam, message.lParam);
    });
  };
}

}  // namespace orlo::posix
