#pragma once

#include "foundation/Pointer.h"
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

}  // namespace orlo
