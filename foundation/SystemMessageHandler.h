#pragma once

#include "foundation/Base.h"

#include <cstdint>

namespace orlo {

/// Is given each message that the system processes before the window that it is for. What a window is depends on the
/// platform; what the numbers mean is up to those who post them.
class ISystemMessageHandler : public virtual IBase {
public:
  /// True if the message is handled: nobody else gets it.
  virtual bool onSystemMessage(IBase* window, std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam) = 0;
};

}  // namespace orlo
