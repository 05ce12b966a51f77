#pragma once

#include <sys/resource.h>

/// The most that this process has ever had, in KB.
inline long MostMemory() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}
