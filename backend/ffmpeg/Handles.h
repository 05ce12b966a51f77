#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/dict.h>
#include <libavutil/frame.h>
#include <libswscale/swscale.h>
}

#include <memory>
#include <new>

namespace vantra::ffmpeg {

struct CFreeHandle {
  void operator()(AVFrame* frame) const { av_frame_free(&frame); }
  void operator()(AVPacket* packet) const { av_packet_free(&packet); }
  void operator()(AVCodecContext* codec) const { avcodec_free_context(&codec); }
  void operator()(AVFormatContext* format) const { avformat_close_input(&format); }
  void operator()(AVDictionary* options) const { av_dict_free(&options); }
  void operator()(SwsContext* scaler) const { sws_freeContext(scaler); }
  void operator()(AVIOContext* io) const {
    av_freep(&io->buffer);
    avio_context_free(&io);
  }
};

template <class T>
using CHandle = std::unique_ptr<T, CFreeHandle>;

/// FFmpeg gives null if there is no memory.
template <class T>
CHandle<T> Held(T* object) {
  if (!object) throw std::bad_alloc();
  return CHandle<T>(object);
}

}  // namespace vantra::ffmpeg
