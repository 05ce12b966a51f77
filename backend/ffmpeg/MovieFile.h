#pragma once

#include "backend/ffmpeg/Geometry.h"
#include "backend/ffmpeg/LocalFile.h"

#include <cstdint>
#include <optional>
#include <string>

namespace vantra::ffmpeg {

/// What a movie is, as its file and its first picture say.
struct CMovieFacts {
  /// Of the stored pictures.
  int width = 0;
  int height = 0;
  /// How wide a pixel is for its height.
  double pixelAspect = 1;
  /// From the stored picture to the upright one.
  COrientation upright;
  /// In seconds from the beginning; infinite for a still picture.
  double duration = 0;
};

/// The pictures of a movie, decoded on the caller's thread. Times are seconds from the beginning of the movie. All that
/// it does throws CFailure.
class CMovieFile {
public:
  CMovieFile(const std::string& path, const std::atomic<bool>& closed);

  const std::string& GetPath() const { return path_; }
  const CMovieFacts& GetFacts() const { return facts_; }

  /// The picture that is seen at a time: the last one that begins by then, or the first of all. It stays until the
  /// next call.
  const AVFrame& FrameAt(double seconds);
  /// Another one for each picture.
  std::uint64_t GetFrameNumber() const { return frameNumber_; }
  /// Work that begins now, and who may stop it.
  void Begin(const std::atomic<bool>* stopped) { watch_.Begin(stopped); }

private:
  struct CTimedFrame {
    CHandle<AVFrame> frame = Held(av_frame_alloc());
    double time = 0;
  };

  struct CWalk {
    std::int64_t count = 0;
    /// 0 without time stamps.
    double end = 0;
  };

  void Open();
  void OpenDecoder();
  void ReadFacts();
  double FindDuration();
  double MeasureDuration();
  double MeasureEnd(double about);
  CWalk WalkToEnd();
  bool Decode(CTimedFrame& frame);
  void Feed();
  bool TakeTime(CTimedFrame& frame);
  void Seek(double seconds);
  bool SeekBefore(double seconds, double wanted);
  void Reopen();
  double ToSeconds(std::int64_t timestamp) const;
  const AVStream& GetStream() const { return *format_->streams[stream_]; }

  std::string path_;
  CWatch watch_;
  std::optional<CLocalFile> file_;
  CHandle<AVFormatContext> format_;
  CHandle<AVCodecContext> decoder_;
  CHandle<AVPacket> packet_ = Held(av_packet_alloc());
  int stream_ = 0;
  CMovieFacts facts_;

  /// Where the time stamps begin.
  std::int64_t origin_ = 0;
  double frameLength_ = 0;
  double tolerance_ = 0;
  /// For files whose time stamps mean nothing: pictures are counted, and seeking begins at the beginning.
  bool countsFrames_ = false;
  bool isSequential_ = false;

  CTimedFrame current_;
  CTimedFrame next_;
  bool hasNext_ = false;
  bool hasEnded_ = false;
  double firstTime_ = 0;
  std::uint64_t frameNumber_ = 1;

  std::int64_t decodedCount_ = 0;
  double lastTime_ = 0;
  bool hasLastTime_ = false;
  bool isDraining_ = false;
  bool waitsForKey_ = false;
  /// After a seek: pictures before this time stamp refer to what was not decoded.
  std::int64_t validFrom_ = AV_NOPTS_VALUE;
};

}  // namespace vantra::ffmpeg
