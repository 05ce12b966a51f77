#pragma once

#include "foundation/posix/FileHandle.h"

#include <string>
#include <string_view>

namespace orlo::posix {

/// Puts a file with these bytes in the place of the one that the path leads to, symbolic links followed. It has the
/// mode and, where that is permitted, the owner of the old one, which must be there. It is on the disk before it takes
/// that place, and until then has the name of the old one with a "." before it and ".new" behind. One caller at a time.
/// Throws std::system_error.
CFileHandle replaceFile(const std::string& path, std::string_view bytes);

}  // namespace orlo::posix
