#include "host/Mp4Sink.h"

extern "C" {
#include <libavutil/opt.h>
}

#include "host/Errors.h"

#include <algorithm>
#include <cstring>

namespace host {

namespace {

Size madeEven(Size size) {
  return {(size.width + 1) / 2 * 2, (size.height + 1) / 2 * 2};
}

const AVCodec* findEncoder() {
  if (const AVCodec* x264 = avcodec_find_encoder_by_name("libx264")) return x264;
  if (const AVCodec* openH264 = avcodec_find_encoder_by_name("libopenh264")) return openH264;
  return avcodec_find_encoder(AV_CODEC_ID_MPEG4);
}

}  // namespace

void MuxerDeleter::operator()(AVFormatContext* format) const {
  if (format->pb) avio_closep(&format->pb);
  avformat_free_context(format);
}

Mp4Sink::Mp4Sink(const std::string& path, Size size, FrameRate rate)
    : file_(path), size_(madeEven(size)), frame_(makeFrame()), packet_(makePacket()) {
  AVFormatContext* format = nullptr;
  check(avformat_alloc_output_context2(&format, nullptr, "mp4", nullptr));
  format_.reset(format);
  openEncoder(rate);
  openMuxer();
  openScaler();
}

void Mp4Sink::openEncoder(FrameRate rate) {
  const AVCodec* codec = findEncoder();
  if (!codec) throw InputError(located(file_.path(), "FFmpeg's libraries here cannot write video"));
  encoder_ = makeCodec(*codec);
  encoder_->width = size_.width;
  encoder_->height = size_.height;
  encoder_->pix_fmt = AV_PIX_FMT_YUV420P;
  encoder_->time_base = {rate.den, rate.num};
  encoder_->framerate = {rate.num, rate.den};
  encoder_->sample_aspect_ratio = {1, 1};
  encoder_->colorspace = colourSpaceFor(AVCOL_SPC_UNSPECIFIED, size_.height);
  encoder_->color_range = AVCOL_RANGE_MPEG;
  if (codec->id == AV_CODEC_ID_H264) {
    av_opt_set(encoder_->priv_data, "preset", "veryfast", 0);
    av_opt_set(encoder_->priv_data, "crf", "18", 0);
  } else {
    encoder_->flags |= AV_CODEC_FLAG_QSCALE;
    encoder_->global_quality = 2 * FF_QP2LAMBDA;
  }
  if (format_->oformat->flags & AVFMT_GLOBALHEADER) encoder_->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
  check(avcodec_open2(encoder_.get(), codec, nullptr));
}

void Mp4Sink::openMuxer() {
  stream_ = avformat_new_stream(format_.get(), nullptr);
  if (!stream_) throw std::bad_alloc();
  check(avcodec_parameters_from_context(stream_->codecpar, encoder_.get()));
  stream_->time_base = encoder_->time_base;
  stream_->avg_frame_rate = encoder_->framerate;
  const std::string url = "file:" + file_.passingPath();
  check(avio_open(&format_->pb, url.c_str(), AVIO_FLAG_WRITE));
  format_->url = av_strdup(url.c_str());
  AVDictionary* options = nullptr;
  av_dict_set(&options, "movflags", "+faststart", 0);
  const int result = avformat_write_header(format_.get(), &options);
  av_dict_free(&options);
  check(result);
}

void Mp4Sink::openScaler() {
  scaler_.reset(sws_getContext(size_.width, size_.height, AV_PIX_FMT_BGR0, size_.width, size_.height,
                               AV_PIX_FMT_YUV420P, SWS_BICUBIC | SWS_ACCURATE_RND, nullptr, nullptr, nullptr));
  if (!scaler_) throw std::bad_alloc();
  sws_setColorspaceDetails(scaler_.get(), sws_getCoefficients(SWS_CS_DEFAULT), 1,
                           sws_getCoefficients(encoder_->colorspace), 0, 0, 1 << 16, 1 << 16);
  frame_->width = size_.width;
  frame_->height = size_.height;
  frame_->format = encoder_->pix_fmt;
  check(av_frame_get_buffer(frame_.get(), 0));
}

PictureView Mp4Sink::evenSized(const PictureView& frame) {
  if (frame.size == size_) return frame;
  if (!padded_) padded_.emplace(size_);
  const std::ptrdiff_t rowBytes = static_cast<std::ptrdiff_t>(frame.size.width) * 4;
  for (int y = 0; y < size_.height; ++y) {
    const std::uint8_t* source = frame.row(std::min(y, frame.size.height - 1));
    std::uint8_t* target = std::copy_n(source, rowBytes, padded_->row(y));
    if (frame.size.width < size_.width) std::copy_n(source + rowBytes - 4, 4, target);
  }
  return padded_->view();
}

void Mp4Sink::write(const PictureView& frame) {
  const PictureView picture = evenSized(frame);
  check(av_frame_make_writable(frame_.get()));
  const std::uint8_t* planes[4] = {picture.pixels};
  const int strides[4] = {picture.stride};
  sws_scale(scaler_.get(), planes, strides, 0, size_.height, frame_->data, frame_->linesize);
  frame_->pts = written_++;
  encode(frame_.get());
}

void Mp4Sink::finish() {
  encode(nullptr);
  check(av_write_trailer(format_.get()));
  check(avio_closep(&format_->pb));
  file_.commit();
}

void Mp4Sink::encode(const AVFrame* frame) {
  check(avcodec_send_frame(encoder_.get(), frame));
  while (true) {
    const int result = avcodec_receive_packet(encoder_.get(), packet_.get());
    if (result == AVERROR(EAGAIN) || result == AVERROR_EOF) return;
    check(result);
    packet_->stream_index = stream_->index;
    packet_->duration = 1;
    av_packet_rescale_ts(packet_.get(), encoder_->time_base, stream_->time_base);
    check(av_interleaved_write_frame(format_.get(), packet_.get()));
  }
}

void Mp4Sink::check(int result) const {
  if (result < 0) throw InputError(located(file_.path(), ffmpegMessage(result)));
}

}  // namespace host
