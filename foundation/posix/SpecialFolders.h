#pragma once

#include "foundation/System.h"

#include <string>

namespace orlo::posix {

/// The folder by the rules of the desktop: what the user has set, or else the usual one. Without "/" at the end.
std::string specialFolder(ESpecialFolder id);
std::string tempFolder();

/// The value of a name in a file of lines NAME="value", as user-dirs.dirs and os-release are; empty if there is none,
/// or if the file is larger than 1 MB.
std::string readShellValue(const std::string& file, const std::string& name);

}  // namespace orlo::posix
