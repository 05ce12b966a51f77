#pragma once

#include "foundation/SystemMessageHandler.h"

#include <cstdint>

namespace orlo {

/// Brings ticks and posted calls to those who wait for them, on the thread that made it and only while that thread asks
/// for it: who never does pays nothing. What a receiver throws passes through. The other operations of this are for
/// that thread, too; on another one processing throws CInvalidObjectStateError.
class IMessagePump : public virtual IBase {
public:
  /// Processes one message; false if none waits.
  virtual bool processMessage() = 0;
  /// Waits for one up to that time; false if none came.
  virtual bool processMessage(std::uint32_t milliseconds) = 0;
  /// Processes what waits at the time of the call; false if there was nothing. It ends whatever the receivers post.
  virtual bool processAllMessages() = 0;

  /// Handlers are given each message first, those who came last before the others. They are not kept alive.
  virtual void addMessageHandler(ISystemMessageHandler* handler) = 0;
  virtual void removeMessageHandler(ISystemMessageHandler* handler) = 0;
};

}  // namespace orlo
