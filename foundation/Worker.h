#pragma once

#include "foundation/Base.h"

#include <cstdint>

namespace orlo {

/// What is called again and again, at an interval, on the thread that processes the system's messages. Times are those
/// of ITimeManager::getTime.
class IWorker : public virtual IBase {
public:
  /// Milliseconds.
  virtual std::int32_t getInterval() = 0;
  /// The worker is called once this time has come. A new worker's 0 asks for the next pass.
  virtual std::int64_t getNextCallTime() = 0;
  /// Called by the worker's manager after each work().
  virtual void setNextCallTime(std::int64_t time) = 0;
  /// Whether the worker is inside work(), and so must not be called again.
  virtual bool isRunning() = 0;
  virtual void work() = 0;
};

}  // namespace orlo
