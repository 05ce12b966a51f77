#include "host/ClipReader.h"

extern "C" {
#include <libavutil/dict.h>
}

#include "host/Errors.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

// Pictures that fail in a row with nothing read in between, before the clip counts as ended.
constexpr int maxFailures = 100;

}  // namespace

ClipReader::ClipReader(const std::string& path) : path_(path), packet_(makePacket()) {
  // "file:" and the white list keep names from being taken for addresses, and playlists from leading elsewhere.
  AVDictionary* options = nullptr;
  av_dict_set(&options, "protocol_whitelist", "file", 0);
  AVFormatContext* format = nullptr;
  const int opened = avformat_open_input(&format, ("file:" + path).c_str(), nullptr, &options);
  av_dict_free(&options);
  if (opened < 0) throw InputError(located(path, ffmpegMessage(opened)));
  format_.reset(format);
  const int found = avformat_find_stream_info(format, nullptr);
  if (found < 0) throw InputError(located(path, ffmpegMessage(found)));
  openDecoder();
}

void ClipReader::openDecoder() {
  const AVCodec* codec = nullptr;
  const int index = av_find_best_stream(format_.get(), AVMEDIA_TYPE_VIDEO, -1, -1, &codec, 0);
  if (index == AVERROR_STREAM_NOT_FOUND) throw InputError(located(path_, "no video stream"));
  if (index < 0 || !codec) throw InputError(located(path_, "no decoder for its video"));
  stream_ = format_->streams[index];
  for (unsigned other = 0; other < format_->nb_streams; ++other) {
    if (static_cast<int>(other) != index) format_->streams[other]->discard = AVDISCARD_ALL;
  }

  decoder_ = makeCodec(*codec);
  int result = avcodec_parameters_to_context(decoder_.get(), stream_->codecpar);
  decoder_->pkt_timebase = stream_->time_base;
  decoder_->thread_count = 0;
  decoder_->max_pixels = static_cast<std::int64_t>(Size::maxSide) * Size::maxSide;
  if (result >= 0) result = avcodec_open2(decoder_.get(), codec, nullptr);
  if (result < 0) throw InputError(located(path_, ffmpegMessage(result)));
}

Size ClipReader::size() const {
  const AVRational aspect = av_guess_sample_aspect_ratio(format_.get(), stream_, nullptr);
  const double stretch = aspect.num > 0 && aspect.den > 0 ? av_q2d(aspect) : 1;
  const double width = std::clamp<double>(decoder_->width * stretch, 1, Size::maxSide + 1);
  return {stretch == 1 ? decoder_->width : static_cast<int>(std::lround(width / 2)) * 2, decoder_->height};
}

FrameRate ClipReader::rate() const {
  const AVRational rate = av_guess_frame_rate(format_.get(), stream_, nullptr);
  return rate.num > 0 && rate.den > 0 ? FrameRate{rate.num, rate.den} : FrameRate{};
}

double ClipReader::timeOf(const AVFrame& frame) const {
  return static_cast<double>(frame.best_effort_timestamp) * av_q2d(stream_->time_base);
}

FrameOwner ClipReader::next() {
  FrameOwner frame = makeFrame();
  for (int failures = 0; failures < maxFailures; ++failures) {
    const int result = avcodec_receive_frame(decoder_.get(), frame.get());
    if (result >= 0) return frame;
    if (result == AVERROR(ENOMEM)) throw std::bad_alloc();
    if (result == AVERROR_EOF) return nullptr;
    if (result == AVERROR(EAGAIN) && feed()) failures = 0;
  }
  return nullptr;
}

bool ClipReader::feed() {
  do {
    av_packet_unref(packet_.get());
    if (av_read_frame(format_.get(), packet_.get()) < 0) {
      avcodec_send_packet(decoder_.get(), nullptr);
      return false;
    }
  } while (packet_->stream_index != stream_->index);
  avcodec_send_packet(decoder_.get(), packet_.get());
  return true;
}

}  // namespace host
