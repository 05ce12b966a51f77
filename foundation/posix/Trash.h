#pragma once

#include <string>

namespace orlo::posix {

/// Puts a file, folder or link into the desktop's recycle bin, where the user finds it with the place that it came
/// from: the one of the user's own file system, or the one of the file system that it is on. Answers 0 or the errno
/// value of the failure.
int moveToTrash(const std::string& path);

}  // namespace orlo::posix
