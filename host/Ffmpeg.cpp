#include "host/Ffmpeg.h"

extern "C" {
#include <libavutil/error.h>
#include <libavutil/frame.h>
}

#include <new>

namespace host {

namespace {

template <typename Object>
FfmpegOwner<Object> owned(Object* object) {
  if (!object) throw std::bad_alloc();
  return FfmpegOwner<Object>(object);
}

}  // namespace

FrameOwner makeFrame() {
  return owned(av_frame_alloc());
}

PacketOwner makePacket() {
  return owned(av_packet_alloc());
}

CodecOwner makeCodec(const AVCodec& codec) {
  return owned(avcodec_alloc_context3(&codec));
}

std::string ffmpegMessage(int error) {
  char text[AV_ERROR_MAX_STRING_SIZE] = {};
  av_strerror(error, text, sizeof text);
  return text;
}

AVColorSpace colourSpaceFor(AVColorSpace said, int height) {
  if (said != AVCOL_SPC_UNSPECIFIED && said != AVCOL_SPC_RESERVED && said != AVCOL_SPC_RGB) return said;
  return height > 576 ? AVCOL_SPC_BT709 : AVCOL_SPC_SMPTE170M;
}

}  // namespace host
