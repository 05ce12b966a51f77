#pragma once

#include "foundation/System.h"

#include <string>
#include <vector>

namespace orlo::posix {

struct CMount {
  std::string source;
  std::string folder;
  std::string type;
};

/// All that is mounted, in the form of /proc/self/mounts. Empty if there is no such file.
std::vector<CMount> readMountTable(const char* file = "/proc/self/mounts");

/// What people would call a drive: disks, discs, network shares, and file systems in memory that are not the system's
/// own.
bool isDrive(const CMount& mount);
CDrive::Type driveTypeOf(const CMount& mount);

}  // namespace orlo::posix
