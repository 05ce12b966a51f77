#pragma once

#include "host/FrameSink.h"
#include "host/OutputFile.h"

#include <string>

namespace host {

// The first frame as a PNG, with an alpha channel only if something is not opaque.
class PngSink : public FrameSink {
public:
  explicit PngSink(const std::string& path) : file_(path) {}

  void write(const PictureView& frame) override;
  void finish() override { file_.commit(); }

private:
  OutputFile file_;
};

}  // namespace host
