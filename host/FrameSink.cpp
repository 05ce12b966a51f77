#include "host/FrameSink.h"

#include "host/FileName.h"
#include "host/Mp4Sink.h"
#include "host/PngSink.h"
#include "host/RawSink.h"

namespace host {

std::unique_ptr<FrameSink> openSink(const std::string& output, Size size, FrameRate rate) {
  if (output == "-") return std::make_unique<RawSink>();
  if (hasExtension(output, ".png")) return std::make_unique<PngSink>(output);
  return std::make_unique<Mp4Sink>(output, size, rate);
}

}  // namespace host
