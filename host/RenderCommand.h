#pragma once

#include "host/Options.h"

namespace host {

// Draws the page frame by frame. Throws InputError, UsageError, OutputClosed and Interrupted.
void render(const Options& options);

}  // namespace host
