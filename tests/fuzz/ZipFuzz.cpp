// Opens pages whose pictures and texts lie in an archive of any bytes, through the functions that a host calls.

#include "graphics/model/Base64.h"
#include "include/mfilter/mfilter.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>

namespace {

constexpr std::string_view kPage =
    "<page><content-box width=\"64\" height=\"36\"/>"
    "<image><size width=\"9\" height=\"9\"/><attachment-bitmap name=\"a.png\"/></image>"
    "<image><size width=\"9\" height=\"9\"/><attachment-bitmap name=\"f/b.bmp\"/></image>"
    "<image><size width=\"9\" height=\"9\"/><attachment-bitmap name=\"c.jpg\"/></image>"
    "<image><size width=\"9\" height=\"9\"/><attachment-bitmap name=\"d.ico\"/></image>"
    "<image><size width=\"9\" height=\"9\"/><attachment-bitmap name=\"\"/></image>"
    "<image><size width=\"9\" height=\"9\"/><attachment-bitmap name=\"a.png\"/></image>"
    "<text><size width=\"9\" height=\"9\"/><attachment-richtextbuffer name=\"t.xml\"/></text></page>";

/// A file without a name in any folder, with these bytes.
class CFile {
public:
  CFile(const std::uint8_t* data, std::size_t size) : file_(memfd_create("archive", 0)) {
    if (write(file_, data, size) != static_cast<ssize_t>(size)) __builtin_trap();
  }
  ~CFile() { close(file_); }
  CFile(const CFile&) = delete;
  CFile& operator=(const CFile&) = delete;

  std::string Path() const { return "/proc/self/fd/" + std::to_string(file_); }

private:
  int file_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string page =
      graphics::EncodeBase64(std::span(reinterpret_cast<const std::uint8_t*>(kPage.data()), kPage.size()));
  const CFile file(data, size);
  void* handle = nullptr;
  mfilter_initInfoStore(&handle);
  mfilter_setParam(handle, "width", "64");
  mfilter_setParam(handle, "height", "36");
  mfilter_setParam(handle, "noalpha", "1");
  if (mfilter_setParam(handle, "attachments", file.Path().c_str()) != 0) __builtin_trap();
  mfilter_setParam(handle, "plugindata", page.c_str());
  mfilter_open(handle);
  void* pixels = nullptr;
  std::int32_t stride = 0;
  mfilter_nextFrame(handle);
  mfilter_beginReadFrame(handle, 0, 0, &pixels, &stride);
  mfilter_endReadFrame(handle);
  mfilter_close(handle);
  mfilter_releaseInfoStore(handle);
  return 0;
}
