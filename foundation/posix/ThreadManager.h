#pragma once

#include "foundation/Object.h"
#include "foundation/ThreadManager.h"

namespace orlo::posix {

class CThreadManager : public CObject, public IThreadManager {
public:
  P<IThread> createThread(P<IAction> action) override;
  void yield(bool sleepAtLeastOneMs) override;
  void sleep(std::uint32_t milliseconds) override;
  std::uint32_t getCurrentThreadId() override;
};

}  // namespace orlo::posix
