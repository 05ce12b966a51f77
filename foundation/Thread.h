#pragma once

#include "foundation/Base.h"
#include "foundation/Pointer.h"

#include <cstdint>

namespace orlo {

class CException;

/// How a thread stands against the others of its process. normal is what the thread that created it had.
enum class ThreadPriority { idle, lowest, low, normal, high, highest };

/// A thread that runs. It lives as long as its action runs; who drops the last reference lets it run on by itself. All
/// operations may be called from any thread.
class IThread : public virtual IBase {
public:
  static constexpr std::uint32_t kForever = 0xFFFFFFFF;

  /// Whether the thread ended within that many milliseconds, with all that it kept in thread-local slots. 0 does not
  /// wait. A thread never sees its own end: asked on itself the answer is false at once.
  virtual bool waitForEnd(std::uint32_t milliseconds) = 0;

  /// Throws CError if the system does not allow it (raising a priority takes a privilege on most systems, and so does
  /// leading a lowered one back) or if the thread has ended.
  virtual void setPriority(ThreadPriority priority) = 0;

  /// What the thread's action threw; it ends the thread and nothing else. Null if the action returned or still runs.
  virtual P<CException> getError() = 0;
};

}  // namespace orlo
