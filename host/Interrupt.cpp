#include "host/Interrupt.h"

#include "host/Errors.h"

#include <csignal>

namespace host {

namespace {

volatile std::sig_atomic_t received = 0;

void remember(int signalNumber) {
  received = signalNumber;
  std::signal(signalNumber, SIG_DFL);
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
