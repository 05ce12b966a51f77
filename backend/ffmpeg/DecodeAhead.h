#pragma once

#include "backend/ffmpeg/Failure.h"
#include "backend/ffmpeg/MovieStore.h"
#include "backend/ffmpeg/PictureMaker.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace vantra::ffmpeg {

/// Plays a movie on a thread of its own, a few pictures ahead of who asks for them. It goes by the host's frames: one
/// entry for each of them, so that pictures that nobody sees are not scaled.
class CDecodeAhead {
public:
  /// The store and the flag live as long. Throws CFailure if there is no room for one more.
  CDecodeAhead(CMovieStore& store, const std::atomic<bool>& closed, const std::string& path, const CLook& look,
               int width, int height);
  ~CDecodeAhead();
  CDecodeAhead(const CDecodeAhead&) = delete;
  CDecodeAhead& operator=(const CDecodeAhead&) = delete;

  /// Whether that time comes next.
  bool Expects(double seconds, double step) const;
  /// Whether it comes next or soon after that.
  bool ComesTo(double seconds, double step) const;
  /// Decodes from a time on, in steps.
  void Start(double seconds, double step);
  /// The next picture; waits for it. Null for none: if the movie has been closed, or has failed.
  CSharedPicture Next();
  /// Wakes who waits in Next when the movie has been closed.
  void Wake();
  /// Why there are no more pictures, once.
  std::optional<CFailure> TakeFailure();

private:
  void Run();
  void Work(std::unique_lock<std::mutex>& lock);
  CSharedPicture Produce(double seconds);

  CMovieStore& store_;
  const std::atomic<bool>& closed_;
  const std::string path_;
  std::int64_t pixels_;

  // The worker's own.
  std::unique_ptr<CMovieFile> movie_;
  CPictureMaker maker_;
  CSharedPicture last_;
  std::uint64_t lastNumber_ = 0;

  // Of who asks.
  double expected_ = 0;
  double step_ = 0;
  std::int64_t taken_ = 0;
  bool hasStarted_ = false;

  std::mutex mutex_;
  std::condition_variable changed_;
  std::atomic<bool> stopped_{false};
  double from_ = 0;
  double stepAhead_ = 0;
  std::int64_t produced_ = 0;
  std::uint64_t start_ = 0;
  bool isIdle_ = true;
  bool hasFailed_ = false;
  std::deque<CSharedPicture> ready_;
  std::optional<CFailure> failure_;

  std::thread thread_;
};

}  // namespace vantra::ffmpeg
