#include "host/RawSink.h"

#include "host/Descriptor.h"
#include "host/Errors.h"

#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace host {

void RawSink::write(const PictureView& frame) {
  const std::size_t rowBytes = static_cast<std::size_t>(frame.size.width) * 4;
  const bool packed = frame.stride == frame.size.width * 4;
  const int pieces = packed ? 1 : frame.size.height;
  const std::size_t pieceBytes = packed ? rowBytes * static_cast<std::size_t>(frame.size.height) : rowBytes;
  for (int piece = 0; piece < pieces; ++piece) {
    if (writeAll(STDOUT_FILENO, frame.row(piece), pieceBytes)) continue;
    if (errno == EPIPE) throw OutputClosed();
    throw InputError(located("standard output", std::strerror(errno)));
  }
}

}  // namespace host
