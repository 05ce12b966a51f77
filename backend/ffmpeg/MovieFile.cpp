#include "backend/ffmpeg/MovieFile.h"

#include "backend/ffmpeg/Failure.h"

#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace vantra::ffmpeg {

namespace {

/// A jump forward that decoding is faster for than seeking, in seconds.
constexpr double kShortJump = 2;
constexpr int kMostErrors = 1000;

}  // namespace

CMovieFile::CMovieFile(const std::string& path, const std::atomic<bool>& closed) : path_(path), watch_(closed) {
  Open();
  if (!Decode(current_)) throw CFailure(Fault::notPlayable, "No picture can be decoded: " + path_);
  firstTime_ = current_.time;
  ReadFacts();
}

const AVFrame& CMovieFile::FrameAt(double seconds) {
  const bool isFirst = current_.time <= firstTime_ + tolerance_;
  const double known = hasNext_ ? next_.time : current_.time;
  if (seconds < current_.time - tolerance_ ? !isFirst : !hasEnded_ && seconds > known + kShortJump) Seek(seconds);
  while (true) {
    if (!hasNext_) {
      if (hasEnded_ || current_.time >= seconds - tolerance_) break;
      hasNext_ = Decode(next_);
      hasEnded_ = !hasNext_;
      continue;
    }
    if (next_.time > seconds + tolerance_) break;
    std::swap(current_, next_);
    hasNext_ = false;
    ++frameNumber_;
  }
  return *current_.frame;
}

bool CMovieFile::Decode(CTimedFrame& frame) {
  for (int errors = 0; errors < kMostErrors;) {
    watch_.Check();
    const int result = avcodec_receive_frame(decoder_.get(), frame.frame.get());
    if (result == AVERROR_EOF) return false;
    if (result == AVERROR(EAGAIN))
      Feed();
    else if (result < 0)
      ++errors;
    else if (TakeTime(frame))
      return true;
  }
  return false;
}

/// Gives the decoder its next packet, or the word that there is none.
void CMovieFile::Feed() {
  av_packet_unref(packet_.get());
  const int result = isDraining_ ? AVERROR_EOF : av_read_frame(format_.get(), packet_.get());
  if (result == AVERROR(EAGAIN)) return;
  if (result < 0) {
    watch_.Check();
    isDraining_ = true;
    avcodec_send_packet(decoder_.get(), nullptr);
    return;
  }
  if (packet_->stream_index != stream_) return;
  if (waitsForKey_) {
    if (!(packet_->flags & AV_PKT_FLAG_KEY)) return;
    waitsForKey_ = false;
    validFrom_ = packet_->pts;
  }
  avcodec_send_packet(decoder_.get(), packet_.get());
}

double CMovieFile::ToSeconds(std::int64_t timestamp) const {
  return (static_cast<double>(timestamp) - static_cast<double>(origin_)) * av_q2d(GetStream().time_base);
}

/// False for a picture that must not be seen.
bool CMovieFile::TakeTime(CTimedFrame& frame) {
  const std::int64_t stamp = frame.frame->best_effort_timestamp;
  const bool hasStamp = stamp != AV_NOPTS_VALUE && !countsFrames_;
  if (hasStamp && validFrom_ != AV_NOPTS_VALUE && stamp < validFrom_) return false;
  // Without time stamps of pictures there are those of packets, which run ahead.
  if (hasStamp && decodedCount_ == 0 && frame.frame->pts == AV_NOPTS_VALUE) origin_ = stamp;
  double time = countsFrames_ ? static_cast<double>(decodedCount_) * frameLength_ : 0;
  if (hasStamp)
    time = ToSeconds(stamp);
  else if (!countsFrames_ && hasLastTime_)
    time = lastTime_ + frameLength_;
  else if (!countsFrames_ && decodedCount_ > 0)
    time = std::numeric_limits<double>::infinity();  // Nobody knows where a seek has led.
  // Time stamps that begin anew in the midst of a file go on where they were.
  if (hasLastTime_ && time <= lastTime_) time = lastTime_ + frameLength_;
  ++decodedCount_;
  lastTime_ = frame.time = time;
  hasLastTime_ = true;
  return true;
}

/// Afterwards the current picture is one that begins by that time, or the first.
void CMovieFile::Seek(double seconds) {
  const bool isBehind = seconds >= current_.time;
  hasNext_ = false;
  ++frameNumber_;
  if (isSequential_) {
    if (!isBehind) Reopen();
    return;
  }
  constexpr std::array<double, 4> kEarlier = {0, 2, 10, 60};
  for (const double earlier : kEarlier) {
    if (seconds - earlier <= firstTime_) break;
    if (SeekBefore(seconds - earlier, seconds)) return;
  }
  if (!SeekBefore(firstTime_, firstTime_)) Reopen();
}

/// Seeks to a key picture at or before a time. False if none of the pictures that can be decoded then begins by the
/// time that is wanted.
bool CMovieFile::SeekBefore(double seconds, double wanted) {
  const double stamp =
      std::floor((seconds + tolerance_) / av_q2d(GetStream().time_base)) + static_cast<double>(origin_);
  if (!(std::abs(stamp) < 9e18)) return false;
  if (av_seek_frame(format_.get(), stream_, static_cast<std::int64_t>(stamp), AVSEEK_FLAG_BACKWARD) < 0) return false;
  avcodec_flush_buffers(decoder_.get());
  hasLastTime_ = isDraining_ = hasEnded_ = false;
  waitsForKey_ = true;
  validFrom_ = AV_NOPTS_VALUE;
  return Decode(current_) && current_.time <= wanted + tolerance_;
}

void CMovieFile::Reopen() {
  Open();
  if (!Decode(current_)) throw CFailure(Fault::notPlayable, "No picture can be decoded: " + path_);
}

}  // namespace vantra::ffmpeg
