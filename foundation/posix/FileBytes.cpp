#include "foundation/posix/FileBytes.h"

#include <cerrno>
#include <system_error>
#include <unistd.h>

namespace orlo::posix {

std::string readAll(int file, std::size_t mostBytes) {
  std::string text;
  char buffer[65536];
  while (true) {
    const ssize_t size = pread(file, buffer, sizeof(buffer), static_cast<off_t>(text.size()));
    if (size < 0 && errno == EINTR) continue;
    if (size < 0) throw std::system_error(errno, std::generic_category(), "read");
    if (size == 0) return text;
    text.append(buffer, static_cast<std::size_t>(size));
    if (text.size() > mostBytes) throw std::system_error(EFBIG, std::generic_category(), "read");
  }
}

int writeAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(file, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return errno;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

}  // namespace orlo::posix
