#pragma once

#include "foundation/Thread.h"

#include <sys/types.h>

namespace orlo::posix {

int niceOfThread(pid_t thread);

/// By the nice value that counts as normal. Whether the system allowed it.
bool setPriorityOfThread(pid_t thread, int normalNice, ThreadPriority priority);

}  // namespace orlo::posix
