#pragma once

#include "backend/ffmpeg/Limits.h"

#include <atomic>
#include <chrono>

namespace vantra::ffmpeg {

/// Tells those who work on a movie when to leave off: when it has been closed, or when they take too long.
class CWatch {
public:
  using CClock = std::chrono::steady_clock;

  explicit CWatch(const std::atomic<bool>& closed) : closed_(&closed) {}

  /// Another work begins, which somebody may stop by itself. Null for nobody.
  void Begin(const std::atomic<bool>* stopped) {
    stopped_ = stopped;
    deadline_ = CClock::now() + kLongest;
  }
  bool IsClosed() const { return *closed_ || (stopped_ && *stopped_); }
  bool IsLate() const { return CClock::now() > deadline_; }
  bool IsOver() const { return IsClosed() || IsLate(); }
  /// Throws CFailure if it is over.
  void Check() const;

private:
  const std::atomic<bool>* closed_;
  const std::atomic<bool>* stopped_ = nullptr;
  CClock::time_point deadline_ = CClock::now() + kLongest;
};

}  // namespace vantra::ffmpeg
