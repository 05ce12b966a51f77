#pragma once

#include <cstddef>
#include <string>

namespace orlo::posix {

/// Named memory that all processes of this user share. It is made by whoever comes first and gone with the last who
/// holds it, however that process ends.
class CSharedMemory {
public:
  /// prepare is called on the zeroed memory before anybody else sees it. Throws std::system_error.
  CSharedMemory(const std::string& name, std::size_t size, void (*prepare)(void* memory));
  ~CSharedMemory();
  CSharedMemory(const CSharedMemory&) = delete;
  CSharedMemory& operator=(const CSharedMemory&) = delete;

  void* get() const { return memory_; }

private:
  bool open(void (*prepare)(void* memory));
  void map();
  void close();

  std::string path_;
  std::size_t size_;
  int file_ = -1;
  void* memory_ = nullptr;
};

}  // namespace orlo::posix
