#include "foundation/posix/ThreadPriority.h"

#include <sched.h>
#include <sys/resource.h>

namespace orlo::posix {

namespace {

int niceStep(ThreadPriority priority) {
  switch (priority) {
    case ThreadPriority::lowest:
      return 10;
    case ThreadPriority::low:
      return 5;
    case ThreadPriority::high:
      return -5;
    case ThreadPriority::highest:
      return -10;
    case ThreadPriority::idle:
    case ThreadPriority::normal:
      break;
  }
  return 0;
}

bool setPolicy(pid_t thread, int policy) {
  const sched_param none{};
  return sched_setscheduler(thread, policy, &none) == 0;
}

}  // namespace

int niceOfThread(pid_t thread) {
  return getpriority(PRIO_PROCESS, static_cast<id_t>(thread));
}

bool setPriorityOfThread(pid_t thread, int normalNice, ThreadPriority priority) {
  if (priority == ThreadPriority::idle) return setPolicy(thread, SCHED_IDLE);
  if (sched_getscheduler(thread) == SCHED_IDLE && !setPolicy(thread, SCHED_OTHER)) return false;
  return setpriority(PRIO_PROCESS, static_cast<id_t>(thread), normalNice + niceStep(priority)) == 0;
}

}  // namespace orlo::posix
