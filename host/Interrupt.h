#pragma once

namespace host {

// Turns the signals that end a process (interrupt, terminate, hang-up) into an exception at the next check, so that
// unfinished files are removed; a second one, a moment later, ends the process at once. A closed pipe becomes an
// ordinary write error.
void catchSignals();

// Throws Interrupted if one of them has come.
void checkInterrupt();

}  // namespace host
