#pragma once

#include "foundation/System.h"

#include <cstdint>
#include <string>

namespace orlo::posix {

std::string userName();
/// As the distribution calls itself.
std::string osName();
/// The name and the kernel's release.
std::string osVersion();
std::int64_t physicalMemory();
int processorCount();
/// Of the first screen that is connected, asked from the kernel, which needs no desktop.
CScreenMetrics screenMetrics();
/// The program that runs.
std::string programFile();
std::string currentFolder();

}  // namespace orlo::posix
