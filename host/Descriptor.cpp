#include "host/Descriptor.h"

#include "host/Interrupt.h"

#include <cerrno>
#include <unistd.h>

namespace host {

bool writeAll(int descriptor, const void* bytes, std::size_t count) {
  const char* rest = static_cast<const char*>(bytes);
  while (count > 0) {
    const ssize_t written = write(descriptor, rest, count);
    if (written < 0) {
      if (errno != EINTR) return false;
      checkInterrupt();
      continue;
    }
    rest += written;
    count -= static_cast<std::size_t>(written);
  }
  return true;
}

}  // namespace host
