#include "backend/ffmpeg/Failure.h"
#include "backend/ffmpeg/MovieFile.h"

extern "C" {
#include <libavutil/display.h>
}

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>
#include <limits>
#include <string_view>
#include <vector>

namespace vantra::ffmpeg {

namespace {

/// What holds moving or still pictures, and nothing that only names other files.
constexpr const char* kFormats =
    "mov,matroska,webm,avi,mpeg,mpegts,mpegvideo,h264,hevc,m4v,obu,av1,ivf,ogg,asf,flv,gif,apng,mxf,dv,nut,rm,wtv,gxf,"
    "vc1,"
    "yuv4mpegpipe,mjpeg,mpjpeg,png_pipe,jpeg_pipe,webp_pipe,bmp_pipe,tiff_pipe,ppm_pipe,pgm_pipe,pbm_pipe,pam_pipe,"
    "jpegxl_pipe,psd_pipe,sgi_pipe,qoi_pipe,exr_pipe,dpx_pipe,j2k_pipe";

constexpr AVRational kUsualRate = {25, 1};

int RefuseToOpen(AVFormatContext*, AVIOContext**, const char*, int, AVDictionary**) {
  return AVERROR(EACCES);
}

[[noreturn]] void Fail(const std::string& path, int number) {
  throw CFailure(Fault::notPlayable, "Not a movie that can be played: " + path, number);
}

bool IsNamed(const AVInputFormat& format, std::string_view name) {
  return std::string_view(format.name) == name;
}

/// A stream without anything around it, in which a picture's time is its number.
bool IsRaw(const AVInputFormat& format) {
  constexpr std::string_view kRaw[] = {"h264", "hevc", "m4v", "mpegvideo", "vc1", "mjpeg"};
  return (format.flags & AVFMT_NOTIMESTAMPS) != 0 ||
         std::any_of(std::begin(kRaw), std::end(kRaw), [&](std::string_view name) { return IsNamed(format, name); });
}

bool IsPicture(const AVInputFormat& format) {
  return std::string_view(format.name).ends_with("_pipe");
}

/// Of the eight, the one nearest to what the matrix of a file says.
COrientation OrientationOf(const std::int32_t* matrix) {
  const auto sign = [](std::int32_t value) { return value < 0 ? -1 : 1; };
  const auto size = [](std::int32_t value) { return std::abs(static_cast<double>(value)); };
  if (size(matrix[0]) + size(matrix[4]) >= size(matrix[1]) + size(matrix[3]))
    return {sign(matrix[0]), 0, 0, sign(matrix[4])};
  return {0, sign(matrix[1]), sign(matrix[3]), 0};
}

COrientation UprightOf(const AVStream& stream, const AVFrame& frame) {
  constexpr std::size_t kMatrixBytes = 9 * sizeof(std::int32_t);
  std::int32_t matrix[9] = {};
  std::size_t bytes = 0;
  const std::uint8_t* data = av_stream_get_side_data(&stream, AV_PKT_DATA_DISPLAYMATRIX, &bytes);
  if (const AVFrameSideData* const side = av_frame_get_side_data(&frame, AV_FRAME_DATA_DISPLAYMATRIX); !data && side) {
    data = side->data;
    bytes = side->size;
  }
  if (!data || bytes < kMatrixBytes) return {};
  std::memcpy(matrix, data, kMatrixBytes);
  return OrientationOf(matrix);
}

/// The decoders that look into the streams keep to the limits, too.
int FindStreams(AVFormatContext& format) {
  const unsigned count = format.nb_streams;
  const CHandle<AVDictionary> limits = [] {
    AVDictionary* options = nullptr;
    av_dict_set_int(&options, "max_pixels", kMostPixels, 0);
    return CHandle<AVDictionary>(options);
  }();
  std::vector<AVDictionary*> options(count);
  for (AVDictionary*& one : options) av_dict_copy(&one, limits.get(), 0);
  const int found = avformat_find_stream_info(&format, options.data());
  for (AVDictionary*& one : options) av_dict_free(&one);
  return found;
}

}  // namespace

void CMovieFile::Open() {
  decoder_.reset();
  format_.reset();
  file_.emplace(path_, watch_);

  AVFormatContext* format = Held(avformat_alloc_context()).release();
  format->pb = file_->GetIO();
  format->io_open = RefuseToOpen;
  format->interrupt_callback = {[](void* watch) { return static_cast<const CWatch*>(watch)->IsOver() ? 1 : 0; },
                                &watch_};
  format->probesize = kProbedBytes;
  AVDictionary* given = nullptr;
  av_dict_set(&given, "protocol_whitelist", "file", 0);
  av_dict_set(&given, "format_whitelist", kFormats, 0);
  av_dict_set(&given, "max_streams", kMostStreams, 0);
  file_->Guard(*format);
  const int opened = avformat_open_input(&format, "", nullptr, &given);
  const CHandle<AVDictionary> options(given);
  if (opened < 0) {
    watch_.Check();
    Fail(path_, opened);
  }
  format_.reset(format);
  file_->EndHeader();
  if (const int found = FindStreams(*format); found < 0) {
    watch_.Check();
    Fail(path_, found);
  }
  OpenDecoder();

  const AVStream& stream = GetStream();
  const AVInputFormat& kind = *format_->iformat;
  countsFrames_ = IsPicture(kind) || IsRaw(kind);
  isSequential_ = countsFrames_ || IsNamed(kind, "gif") || IsNamed(kind, "apng");
  AVRational rate = av_guess_frame_rate(format_.get(), format_->streams[stream_], nullptr);
  if (rate.num <= 0 || rate.den <= 0) rate = kUsualRate;
  frameLength_ = av_q2d(av_inv_q(rate));
  // Formats that count milliseconds round the time stamps of most frame rates.
  tolerance_ = std::min(av_q2d(stream.time_base) / 2, 0.0005) + 1e-6;

  const std::int64_t start = stream.start_time == AV_NOPTS_VALUE ? 0 : stream.start_time;
  origin_ = start;
  if (format_->start_time != AV_NOPTS_VALUE) {
    // Sound may begin before it is heard.
    const AVRational microseconds = {1, AV_TIME_BASE};
    origin_ =
        std::min(start, av_rescale_q(std::max<std::int64_t>(format_->start_time, 0), microseconds, stream.time_base));
  }
  decodedCount_ = 0;
  hasLastTime_ = isDraining_ = waitsForKey_ = hasNext_ = hasEnded_ = false;
  validFrom_ = AV_NOPTS_VALUE;
}

void CMovieFile::OpenDecoder() {
  const AVCodec* codec = nullptr;
  stream_ = av_find_best_stream(format_.get(), AVMEDIA_TYPE_VIDEO, -1, -1, &codec, 0);
  if (stream_ < 0 || !codec) Fail(path_, stream_);
  for (unsigned index = 0; index < format_->nb_streams; ++index)
    if (static_cast<int>(index) != stream_) format_->streams[index]->discard = AVDISCARD_ALL;
  decoder_ = Held(avcodec_alloc_context3(codec));
  decoder_->max_pixels = kMostPixels;
  decoder_->thread_count = 1;
  decoder_->pkt_timebase = GetStream().time_base;
  int result = avcodec_parameters_to_context(decoder_.get(), GetStream().codecpar);
  if (result >= 0) result = avcodec_open2(decoder_.get(), codec, nullptr);
  if (result < 0) Fail(path_, result);
}

void CMovieFile::ReadFacts() {
  const AVFrame& frame = *current_.frame;
  if (std::max(frame.width, frame.height) > kMostPixelsWideOrHigh)
    throw CFailure(Fault::limit, "The pictures of a movie may be at most 16384 pixels wide or high: " + path_);
  facts_.width = frame.width;
  facts_.height = frame.height;
  const AVRational aspect =
      av_guess_sample_aspect_ratio(format_.get(), format_->streams[stream_], current_.frame.get());
  constexpr double kOddest = 20;
  if (aspect.num > 0 && aspect.den > 0) facts_.pixelAspect = std::clamp(av_q2d(aspect), 1 / kOddest, kOddest);
  facts_.upright = UprightOf(GetStream(), frame);

  const double duration = FindDuration();
  facts_.duration = duration > 0 ? duration : frameLength_;
  if (IsPicture(*format_->iformat) && facts_.duration < frameLength_ * 1.5)
    facts_.duration = std::numeric_limits<double>::infinity();
}

double CMovieFile::FindDuration() {
  const AVStream& stream = GetStream();
  if (isSequential_ || format_->duration_estimation_method == AVFMT_DURATION_FROM_BITRATE) return MeasureDuration();
  double duration = 0;
  if (stream.duration > 0)
    duration = ToSeconds((stream.start_time == AV_NOPTS_VALUE ? origin_ : stream.start_time) + stream.duration);
  else if (format_->duration > 0)
    duration = static_cast<double>(format_->duration) / AV_TIME_BASE;
  else
    return MeasureDuration();
  // Guessed from the last time stamps, which not every picture has.
  if (format_->duration_estimation_method == AVFMT_DURATION_FROM_PTS) return MeasureEnd(duration);
  return duration;
}

/// By decoding what stands at the end.
double CMovieFile::MeasureEnd(double about) {
  constexpr double kLastSeconds = 0.5;
  double end = about;
  if (SeekBefore(std::max(about - kLastSeconds, firstTime_), about)) {
    while (Decode(next_)) {
    }
    end = std::max(end, lastTime_ + frameLength_);
  }
  if (!SeekBefore(firstTime_, firstTime_)) Reopen();
  return end;
}

/// From a walk through all packets.
double CMovieFile::MeasureDuration() {
  Open();
  const CWalk walk = WalkToEnd();
  Reopen();
  if (std::isinf(walk.end)) return walk.end;
  return countsFrames_ || walk.end <= 0 ? static_cast<double>(walk.count) * frameLength_ : walk.end;
}

/// The end is infinite if that takes too long.
CMovieFile::CWalk CMovieFile::WalkToEnd() {
  constexpr std::chrono::seconds kPatience{3};
  const auto begin = CWatch::CClock::now();
  CWalk walk;
  av_packet_unref(packet_.get());
  while (av_read_frame(format_.get(), packet_.get()) >= 0) {
    if (packet_->stream_index == stream_ && !(packet_->flags & AV_PKT_FLAG_DISCARD)) {
      ++walk.count;
      if (packet_->pts != AV_NOPTS_VALUE) {
        const double length = static_cast<double>(packet_->duration) * av_q2d(GetStream().time_base);
        walk.end = std::max(walk.end, ToSeconds(packet_->pts) + (length > 0 ? length : frameLength_));
      }
    }
    av_packet_unref(packet_.get());
    if (CWatch::CClock::now() - begin > kPatience) walk.end = std::numeric_limits<double>::infinity();
    if (std::isinf(walk.end)) break;
  }
  return walk;
}

}  // namespace vantra::ffmpeg
