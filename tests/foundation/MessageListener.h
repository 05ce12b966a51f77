#pragma once

#include "foundation/posix/MessageWindow.h"
#include "tests/foundation/Counted.h"

#include <cstdint>
#include <functional>
#include <utility>

namespace orlo::posix {

/// Answers each message with what a function makes of it.
class CListener : public CCounted, public CMessageWindow::IMessageListener {
public:
  explicit CListener(std::function<bool(std::uint32_t)> action) : action_(std::move(action)) {}
  bool onMessage(CMessageWindow*, std::uint32_t message, std::uintptr_t, std::intptr_t) override {
    return action_(message);
  }

private:
  std::function<bool(std::uint32_t)> action_;
};

}  // namespace orlo::posix
