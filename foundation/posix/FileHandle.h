#pragma once

#include <unistd.h>
#include <utility>

namespace orlo::posix {

/// Owns a file descriptor. A negative one stands for none.
class CFileHandle {
public:
  CFileHandle() = default;
  explicit CFileHandle(int file) : file_(file) {}
  CFileHandle(CFileHandle&& other) noexcept : file_(std::exchange(other.file_, -1)) {}
  CFileHandle& operator=(CFileHandle&& other) noexcept {
    std::swap(file_, other.file_);
    return *this;
  }
  ~CFileHandle() {
    if (file_ >= 0) close(file_);
  }

  int get() const noexcept { return file_; }
  /// The caller closes it.
  [[nodiscard]] int release() noexcept { return std::exchange(file_, -1); }
  explicit operator bool() const noexcept { return file_ >= 0; }

private:
  int file_ = -1;
};

}  // namespace orlo::posix
