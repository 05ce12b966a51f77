#include "host/Progress.h"

#include <cstdio>
#include <unistd.h>

namespace host {

Progress::Progress(std::optional<std::int64_t> total)
    : visible_(isatty(STDERR_FILENO) == 1), total_(total), next_(Clock::now()) {}

Progress::~Progress() {
  if (visible_) std::fputs("\r\033[K", stderr);
}

void Progress::show(std::int64_t done) {
  if (!visible_ || Clock::now() < next_) return;
  next_ = Clock::now() + std::chrono::milliseconds(100);
  if (total_) {
    std::fprintf(stderr, "\rframe %lld of %lld (%lld %%)\033[K", static_cast<long long>(done),
                 static_cast<long long>(*total_), static_cast<long long>(done * 100 / *total_));
  } else {
    std::fprintf(stderr, "\rframe %lld\033[K", static_cast<long long>(done));
  }
  std::fflush(stderr);
}

}  // namespace host
