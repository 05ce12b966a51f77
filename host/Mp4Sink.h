#pragma once

#include "host/Ffmpeg.h"
#include "host/FrameSink.h"
#include "host/OutputFile.h"

#include <optional>
#include <string>

namespace host {

struct MuxerDeleter {
  void operator()(AVFormatContext* format) const;
};

// H.264 in MP4, or MPEG-4 where no H.264 encoder is at hand. What is not opaque lies on black. Odd sizes are made even
// by doubling the last column or row.
class Mp4Sink : public FrameSink {
public:
  Mp4Sink(const std::string& path, Size size, FrameRate rate);

  void write(const PictureView& frame) override;
  void finish() override;

private:
  void openEncoder(FrameRate rate);
  void openMuxer();
  void openScaler();
  void encode(const AVFrame* frame);
  PictureView evenSized(const PictureView& frame);
  void check(int result) const;

  OutputFile file_;
  const Size size_;
  std::unique_ptr<AVFormatContext, MuxerDeleter> format_;
  AVStream* stream_ = nullptr;
  CodecOwner encoder_;
  ScalerOwner scaler_;
  FrameOwner frame_;
  PacketOwner packet_;
  std::optional<Picture> padded_;
  std::int64_t written_ = 0;
};

}  // namespace host
