#include "host/PngSink.h"

#include "host/Alpha.h"
#include "host/Errors.h"
#include "host/Ffmpeg.h"

#include <algorithm>
#include <vector>

namespace host {

namespace {

FrameOwner toPngFrame(const PictureView& picture) {
  const bool opaque = isOpaque(picture);
  FrameOwner frame = makeFrame();
  frame->width = picture.size.width;
  frame->height = picture.size.height;
  frame->format = opaque ? AV_PIX_FMT_RGB24 : AV_PIX_FMT_RGBA;
  if (av_frame_get_buffer(frame.get(), 0) < 0) throw std::bad_alloc();

  std::vector<std::uint8_t> rgba(static_cast<std::size_t>(picture.size.width) * 4);
  const std::size_t bytesPerPixel = opaque ? 3 : 4;
  for (int y = 0; y < picture.size.height; ++y) {
    toStraightRgba(picture.row(y), rgba.data(), picture.size.width);
    std::uint8_t* target = frame->data[0] + static_cast<std::ptrdiff_t>(y) * frame->linesize[0];
    for (std::size_t at = 0; at < rgba.size(); at += 4, target += bytesPerPixel) {
      std::copy_n(rgba.data() + at, bytesPerPixel, target);
    }
  }
  return frame;
}

}  // namespace

void PngSink::write(const PictureView& picture) {
  const AVCodec* codec = avcodec_find_encoder(AV_CODEC_ID_PNG);
  if (!codec) throw InputError(located(file_.path(), "FFmpeg's libraries here cannot write PNG"));
  const FrameOwner frame = toPngFrame(picture);
  const CodecOwner encoder = makeCodec(*codec);
  encoder->width = frame->width;
  encoder->height = frame->height;
  encoder->pix_fmt = static_cast<AVPixelFormat>(frame->format);
  encoder->time_base = {1, 25};

  const PacketOwner packet = makePacket();
  int result = avcodec_open2(encoder.get(), codec, nullptr);
  if (result >= 0) result = avcodec_send_frame(encoder.get(), frame.get());
  if (result >= 0) result = avcodec_send_frame(encoder.get(), nullptr);
  if (result >= 0) result = avcodec_receive_packet(encoder.get(), packet.get());
  if (result < 0) throw InputError(located(file_.path(), ffmpegMessage(result)));
  file_.write(packet->data, static_cast<std::size_t>(packet->size));
}

}  // namespace host
