#pragma once

#include "foundation/Worker.h"
#include "tests/foundation/Counted.h"

#include <cstdint>
#include <functional>
#include <utility>

/// A worker of that interval whose work is an action.
class CTestWorker : public CCounted, public orlo::IWorker {
public:
  CTestWorker(std::int32_t interval, std::function<void()> action) : interval_(interval), action_(std::move(action)) {}

  std::int32_t getInterval() override { return interval_; }
  std::int64_t getNextCallTime() override { return next_; }
  void setNextCallTime(std::int64_t time) override { next_ = time; }
  bool isRunning() override { return running_; }
  void work() override {
    running_ = true;
    struct CEnd {
      bool& running;
      ~CEnd() { running = false; }
    } end{running_};
    action_();
  }

private:
  std::int32_t interval_;
  std::function<void()> action_;
  std::int64_t next_ = 0;
  bool running_ = false;
};
