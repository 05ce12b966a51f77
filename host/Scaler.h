#pragma once

#include "host/Ffmpeg.h"
#include "host/Picture.h"

namespace host {

// Turns decoded pictures of any format and size into premultiplied BGRA of one size.
class Scaler {
public:
  explicit Scaler(Size size) : picture_(size) {}

  // False if the format cannot be converted.
  bool convert(const AVFrame& frame);
  PictureView picture() const { return picture_.view(); }

private:
  bool convertOpaque(const AVFrame& frame);
  bool convertWithAlpha(const AVFrame& frame);

  Picture picture_;
};

}  // namespace host
