#pragma once

#include "foundation/Action.h"
#include "foundation/Object.h"

#include <functional>
#include <utility>

/// A function as an action.
class CActionOf : public orlo::CObject, public orlo::IAction {
public:
  explicit CActionOf(std::function<void()> function) : function_(std::move(function)) {}
  void run() override { function_(); }

private:
  std::function<void()> function_;
};
