#pragma once

#include "host/FrameSink.h"

namespace host {

// Rows of BGRA without padding, to standard output.
class RawSink : public FrameSink {
public:
  void write(const PictureView& frame) override;
  void finish() override {}
};

}  // namespace host
