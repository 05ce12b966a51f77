#pragma once

#include "host/FrameRate.h"
#include "host/Picture.h"

#include <memory>
#include <string>

namespace host {

// Where frames go. A file appears under its name when finish() has returned, and not at all otherwise.
class FrameSink {
public:
  virtual ~FrameSink() = default;

  // Throws InputError if the frame cannot be written, OutputClosed if nobody reads it any more.
  virtual void write(const PictureView& frame) = 0;
  // Throws InputError.
  virtual void finish() = 0;
};

// A sink for "name.png", "name.mp4" or "-". Throws InputError if it cannot be written to.
std::unique_ptr<FrameSink> openSink(const std::string& output, Size size, FrameRate rate);

}  // namespace host
