#pragma once

#include "host/Options.h"

namespace host {

// Writes everything that is wrong with a page to standard output, each with its line, and what the page holds. False if
// there are errors. Throws InputError if the file cannot be read, and Interrupted.
bool check(const CheckOptions& options);

}  // namespace host
