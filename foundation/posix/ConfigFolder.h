#pragma once

#include <string>

namespace orlo::posix {

/// Where the user's settings lie: $XDG_CONFIG_HOME, or .config in the home folder. An absolute path, empty if the user
/// has no home. The folder need not be there.
std::string configFolder();

}  // namespace orlo::posix
