#include "host/Interrupt.h"

#include "host/Errors.h"

#include <atomic>
#include <csignal>
#include <cstdint>
#include <ctime>

namespace host {

namespace {

constexpr std::int64_t sameWishNanoseconds = 200'000'000;

volatile std::sig_atomic_t received = 0;
std::atomic<std::int64_t> receivedAt = 0;
static_assert(std::atomic<std::int64_t>::is_always_lock_free);

std::int64_t now() {
  timespec time{};
  clock_gettime(CLOCK_MONOTONIC, &time);
  return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

// Who asks again ends the process at once. Some senders signal the process and then its group: that is one wish.
void remember(int signalNumber) {
  if (received == 0) {
    receivedAt = now();
    received = signalNumber;
  } else if (now() - receivedAt > sameWishNanoseconds) {
    std::signal(signalNumber, SIG_DFL);
    std::raise(signalNumber);
  }
}

}  // namespace

void catchSignals() {
  for (const int signalNumber : {SIGINT, SIGTERM, SIGHUP}) {
    if (std::signal(signalNumber, remember) == SIG_IGN) std::signal(signalNumber, SIG_IGN);
  }
  std::signal(SIGPIPE, SIG_IGN);
}

void checkInterrupt() {
  if (received != 0) throw Interrupted(received);
}

}  // namespace host
