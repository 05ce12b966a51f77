#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace orlo::posix {

/// The operations on folders, by path without "/" at the end. They answer 0 or the errno value of the failure.

bool isLink(const std::string& path);
int createFolder(const std::string& path);
/// Each level that is missing, with that mode.
int createFolders(const std::string& path, mode_t mode = 0777);
/// An empty one, or a link to a folder.
int deleteFolder(const std::string& path);
/// With all that is in it, however deep it nests. Links are deleted, not followed.
int deleteFolderTree(const std::string& path);

struct CFolderEntry {
  std::string name;
  bool isFolder;
};

/// By name. Links count as what they lead to. Empty if the folder can't be read.
std::vector<CFolderEntry> readFolder(const std::string& path);

}  // namespace orlo::posix
