#pragma once

#include "foundation/FrailArray.h"
#include "foundation/Object.h"
#include "foundation/TimeManager.h"
#include "foundation/Worker.h"

namespace orlo {

/// Calls workers at their intervals. Managers form a tree, in which one timer at the root serves all. Workers and
/// managers have no lock: everything here is for the thread that processes the system's messages.
class IWorkerManager : public virtual IBase {
public:
  /// The manager keeps the worker until it is removed.
  virtual void addWorker(P<IWorker> worker) = 0;
  /// The worker is not called any more, not even in a pass that is under way.
  virtual void removeWorker(IWorker* worker) = 0;

  /// A manager below this one, which must be an IWorker as well. It is not kept alive, so it is removed before it goes
  /// (a CWorkerManager does that by itself).
  virtual void addWorkerManager(IWorkerManager* manager) = 0;
  virtual void removeWorkerManager(IWorkerManager* manager) = 0;

  /// For the manager above, or null: whom to tell of a changed interval.
  virtual void setParent(IWorkerManager* parent) = 0;
  /// For a manager below this one, or a worker, whose interval has changed.
  virtual void updateInterval() = 0;
};

/// The greatest common divisor of two intervals; 1 if one of them is not above 0.
std::int32_t gcdOfIntervals(std::int32_t a, std::int32_t b);

class CWorkerManager : public CObject, public virtual IWorker, public virtual IWorkerManager {
public:
  /// By the clock of the process, or by another.
  CWorkerManager();
  explicit CWorkerManager(P<ITimeManager> clock);
  ~CWorkerManager() override;
  CWorkerManager(const CWorkerManager&) = delete;
  CWorkerManager& operator=(const CWorkerManager&) = delete;

  void addWorker(P<IWorker> worker) override;
  void removeWorker(IWorker* worker) override;
  void addWorkerManager(IWorkerManager* manager) override;
  void removeWorkerManager(IWorkerManager* manager) override;
  void setParent(IWorkerManager* parent) override { parent_ = parent; }
  void updateInterval() override;

  /// What serves all workers and managers below, the greatest common divisor of their intervals. 0 if there are none.
  std::int32_t getInterval() override { return interval_; }
  std::int64_t getNextCallTime() override { return nextCallTime_; }
  void setNextCallTime(std::int64_t time) override { nextCallTime_ = time; }
  bool isRunning() override { return passes_ > 0; }

  /// One pass: calls the workers whose time has come, and then the managers below, each from the last to the first.
  /// An error of a worker ends the pass; the worker's turn counts as done.
  void work() override;

protected:
  /// Called when the interval has become another, after which the parent is told.
  virtual void onIntervalChanged() {}

private:
  std::int32_t wantedInterval();
  void followClock(std::int64_t now);

  TFrailArray<IWorker> workers_;
  TFrailArray<IWorkerManager> subManagers_;
  std::int32_t interval_ = 0;
  std::int64_t lastRun_ = 0;
  std::int64_t nextCallTime_ = 0;
  int passes_ = 0;
  IWorkerManager* parent_ = nullptr;
  P<ITimeManager> clock_;
};

}  // namespace orlo
