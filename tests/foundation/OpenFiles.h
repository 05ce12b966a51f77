#pragma once

#include <cstddef>
#include <fcntl.h>
#include <filesystem>
#include <set>
#include <string>

/// The numbers of the files that this process has open.
inline std::set<int> openFiles() {
  std::set<int> result;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd"))
    result.insert(std::stoi(entry.path().filename()));
  // The folder itself was open while it was read.
  std::erase_if(result, [](int file) { return fcntl(file, F_GETFD) < 0; });
  return result;
}

/// The threads of this process.
inline std::size_t threadCount() {
  std::size_t count = 0;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator("/proc/self/task")) ++count;
  return count;
}
