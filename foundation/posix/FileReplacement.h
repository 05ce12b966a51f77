#pragma once

#include "foundation/posix/FileHandle.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace orlo::posix {

/// All of these throw std::system_error.

/// The content from the start of the file on. More bytes than that are EFBIG.
std::string readAll(int file, std::size_t mostBytes);

/// Puts a file with these bytes in the place of the one that the path leads to, symbolic links followed. It has the
/// mode and, where that is permitted, the owner of the old one, which must be there. It is on the disk before it takes
/// that place, and until then has the name of the old one with a "." before it and ".new" behind. One caller at a time.
CFileHandle replaceFile(const std::string& path, std::string_view bytes);

/// Makes the folder and those above it, for the user alone.
void makeFolders(const std::string& path);

}  // namespace orlo::posix
