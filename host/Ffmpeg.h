#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswscale/swscale.h>
}

#include <memory>
#include <string>

// Owners of the objects of FFmpeg's libraries.
namespace host {

struct FfmpegDeleter {
  void operator()(AVFrame* frame) const { av_frame_free(&frame); }
  void operator()(AVPacket* packet) const { av_packet_free(&packet); }
  void operator()(AVCodecContext* codec) const { avcodec_free_context(&codec); }
  void operator()(SwsContext* scaler) const { sws_freeContext(scaler); }
};
template <typename Object>
using FfmpegOwner = std::unique_ptr<Object, FfmpegDeleter>;

using FrameOwner = FfmpegOwner<AVFrame>;
using PacketOwner = FfmpegOwner<AVPacket>;
using CodecOwner = FfmpegOwner<AVCodecContext>;
using ScalerOwner = FfmpegOwner<SwsContext>;

// All three throw std::bad_alloc.
FrameOwner makeFrame();
PacketOwner makePacket();
CodecOwner makeCodec(const AVCodec& codec);

std::string ffmpegMessage(int error);

// The colour matrix of a picture: what it says of itself, else what is usual for its height.
AVColorSpace colourSpaceFor(AVColorSpace said, int height);

}  // namespace host
