#pragma once

#include "foundation/System.h"

#include <string>

namespace orlo::posix {

/// The operations on files, by path. They answer 0 or the errno value of the failure.

bool fileExists(const std::string& path);
bool folderExists(const std::string& path);
int deleteFile(const std::string& path);
/// Fails if the destination exists.
int moveEntry(const std::string& source, const std::string& destination);
/// The same to a name within an open folder.
int moveEntryInto(const std::string& source, int folder, const std::string& name);
/// As moveEntry, and from one file system to another.
int moveFile(const std::string& source, const std::string& destination);
/// Whatever fails, no part of the copy is left: a file that was to be replaced is empty then.
int copyFile(const std::string& source, const std::string& destination, bool failIfExists);
int readFileTimes(const std::string& path, CFileTimes& times);
/// A folder has none: EISDIR.
int readFileSize(const std::string& path, std::int64_t& size);

}  // namespace orlo::posix
