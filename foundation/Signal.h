#pragma once

#include "foundation/Base.h"
#include "foundation/Pointer.h"

#include <cstdint>

namespace orlo {

/// An event that stays set, and lets every waiting thread pass, until it is reset.
class ISignal : public virtual IBase {
public:
  virtual void set() = 0;
  virtual void reset() = 0;
  virtual void wait() = 0;
  /// Whether the signal was set within that time. 0 does not wait.
  virtual bool wait(std::uint32_t milliseconds) = 0;
};

class ISignalFactory : public virtual IBase {
public:
  /// A new signal, not set.
  virtual P<ISignal> createSignal() = 0;
};

P<ISignalFactory>& getSignalFactory();

}  // namespace orlo
