#pragma once

#include "foundation/Object.h"
#include "foundation/Signal.h"

#include <condition_variable>
#include <mutex>

namespace orlo::posix {

class CSignalImpl : public CObject, public ISignal {
public:
  void set() override;
  void reset() override;
  void wait() override;
  bool wait(std::uint32_t milliseconds) override;

private:
  std::mutex mutex_;
  std::condition_variable changed_;
  bool set_ = false;
};

}  // namespace orlo::posix
