#pragma once

#include "host/Ffmpeg.h"
#include "host/FrameRate.h"
#include "host/Size.h"

#include <optional>
#include <string>

namespace host {

struct FormatDeleter {
  void operator()(AVFormatContext* format) const { avformat_close_input(&format); }
};

// The pictures of a file's best video stream, one after another. A picture file has one of them.
class ClipReader {
public:
  // Throws InputError.
  explicit ClipReader(const std::string& path);

  // With pixels that are not square made square.
  Size size() const;
  FrameRate rate() const;
  // Seconds, on the clip's own clock.
  double timeOf(const AVFrame& frame) const;
  // The next picture; null after the last one. Pictures that cannot be decoded are left out.
  FrameOwner next();

private:
  void openDecoder();
  // Hands the decoder its next packet; false when it got the end.
  bool feed();

  const std::string path_;
  std::unique_ptr<AVFormatContext, FormatDeleter> format_;
  CodecOwner decoder_;
  PacketOwner packet_;
  AVStream* stream_ = nullptr;
};

}  // namespace host
