#pragma once

#include <string>
#include <vector>

namespace orlo::posix {

/// The operations on folders, by path without "/" at the end. They answer 0 or the errno value of the failure.

int createFolder(const std::string& path);
/// Each level that is missing.
int createFolders(const std::string& path);
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
