#pragma once

#include "foundation/Action.h"
#include "foundation/Pointer.h"
#include "foundation/Thread.h"

#include <cstdint>

namespace orlo {

class IThreadManager : public virtual IBase {
public:
  /// Starts a thread that runs the action. Throws CError if there can't be one more.
  virtual P<IThread> createThread(P<IAction> action) = 0;
  /// Gives the processor to another thread, and sleeps a millisecond if asked to.
  virtual void yield(bool sleepAtLeastOneMs) = 0;
  virtual void sleep(std::uint32_t milliseconds) = 0;
  virtual std::uint32_t getCurrentThreadId() = 0;
};

P<IThreadManager>& getThreadManager();

}  // namespace orlo
