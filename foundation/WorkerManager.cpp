#include "foundation/WorkerManager.h"

#include "foundation/ListenerWalk.h"

#include <numeric>
#include <optional>
#include <utility>

namespace orlo {

namespace {

/// Sets a worker's next turn, whether its work() returns or throws.
class CTurn {
public:
  CTurn(IWorker& worker, std::int64_t now) : worker_(worker), now_(now) {}
  ~CTurn() { worker_.setNextCallTime(now_ + worker_.getInterval()); }
  CTurn(const CTurn&) = delete;
  CTurn& operator=(const CTurn&) = delete;

private:
  IWorker& worker_;
  std::int64_t now_;
};

class CPass {
public:
  explicit CPass(int& passes) : passes_(passes) { ++passes_; }
  ~CPass() { --passes_; }
  CPass(const CPass&) = delete;
  CPass& operator=(const CPass&) = delete;

private:
  int& passes_;
};

}  // namespace

std::int32_t gcdOfIntervals(std::int32_t a, std::int32_t b) {
  return a > 0 && b > 0 ? std::gcd(a, b) : 1;
}

CWorkerManager::CWorkerManager() : CWorkerManager(getTimeManager()) {}

CWorkerManager::CWorkerManager(P<ITimeManager> clock) : clock_(std::move(clock)) {}

CWorkerManager::~CWorkerManager() {
  if (parent_) parent_->removeWorkerManager(this);
  walkFromLast(subManagers_, [](IWorkerManager& manager) { manager.setParent(nullptr); });
}

void CWorkerManager::addWorker(P<IWorker> worker) {
  workers_.addStrong(worker.get());
  updateInterval();
}

void CWorkerManager::removeWorker(IWorker* worker) {
  workers_.remove(worker);
  updateInterval();
}

void CWorkerManager::addWorkerManager(IWorkerManager* manager) {
  cast<IWorker>(manager);
  subManagers_.addFrail(manager);
  manager->setParent(this);
  updateInterval();
}

void CWorkerManager::removeWorkerManager(IWorkerManager* manager) {
  if (!subManagers_.remove(manager)) return;
  manager->setParent(nullptr);
  updateInterval();
}

void CWorkerManager::updateInterval() {
  const std::int32_t wanted = wantedInterval();
  if (wanted == interval_) return;
  interval_ = wanted;
  onIntervalChanged();
  if (parent_) parent_->updateInterval();
}

// A manager below that has nothing to do has no wish.
std::int32_t CWorkerManager::wantedInterval() {
  std::optional<std::int32_t> wanted;
  const auto serve = [&wanted](std::int32_t interval) {
    wanted = wanted ? gcdOfIntervals(*wanted, interval) : interval;
  };
  walkFromLast(workers_, [&](IWorker& worker) { serve(worker.getInterval()); });
  walkFromLast(subManagers_, [&](IWorkerManager& manager) {
    if (const std::int32_t interval = cast<IWorker>(&manager)->getInterval()) serve(interval);
  });
  return wanted.value_or(0);
}

void CWorkerManager::work() {
  const CPass pass(passes_);
  const std::int64_t now = clock_->getTime();
  followClock(now);
  walkFromLast(workers_, [now](IWorker& worker) {
    if (worker.isRunning() || worker.getNextCallTime() > now) return;
    const CTurn turn(worker, now);
    worker.work();
  });
  walkFromLast(subManagers_, [](IWorkerManager& manager) { cast<IWorker>(&manager)->work(); });
}

// The clock is one that people set. When it goes back, the turns go back with it: nobody waits until it has caught up.
void CWorkerManager::followClock(std::int64_t now) {
  const std::int64_t behind = lastRun_ - now;
  lastRun_ = now;
  if (behind <= 0) return;
  walkFromLast(workers_, [=](IWorker& worker) {
    const std::int64_t next = worker.getNextCallTime();
    if (next > now) worker.setNextCallTime(next - behind);
  });
}

}  // namespace orlo
