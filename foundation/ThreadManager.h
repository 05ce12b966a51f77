#pragma once

#include "foundation/Base.h"
#include "foundation/Pointer.h"

#include <cstdint>

namespace orlo {

class IThreadManager : public virtual IBase {
public:
  /// Gives the processor to another thread, and sleeps a millisecond if asked to.
  virtual void yield(bool sleepAtLeastOneMs) = 0;
  virtual void sleep(std::uint32_t milliseconds) = 0;
  virtual std::uint32_t getCurrentThreadId() = 0;
};

P<IThreadManager>& getThreadManager();

}  // namespace orlo
