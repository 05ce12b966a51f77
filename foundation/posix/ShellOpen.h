#pragma once

#include <string>

namespace orlo::posix {

/// Whether a program of the desktop has been started to open the path or URI. It is not waited for.
bool openWithDesktop(const std::string& location);

}  // namespace orlo::posix
