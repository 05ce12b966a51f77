#pragma once

#include "backend/ffmpeg/DecodeAhead.h"
#include "backend/ffmpeg/Visual.h"

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace vantra::ffmpeg {

/// A stretch of a movie.
class CVideoClip : public IVisual, public ILeaf {
public:
  /// A length of 0 or less leads to the end of the movie. The store and the flag live as long. Throws CFailure if the
  /// movie can't be played.
  CVideoClip(CMovieStore& store, const std::atomic<bool>& closed, const std::string& path, const CLook& look,
             double begin, double length);

  CSize GetSize() const override { return size_; }
  double GetDuration() const override { return duration_; }
  void Place(const CBox& place, const CPixelBox& visible) override;
  void See(double seconds, std::vector<CSeen>& seen) override;

  void Request(double seconds, double step) override;
  void Expect(double seconds, double step) override;
  CLayer Show(double seconds, double step) override;
  void Tidy() override;
  void Wake() override;

private:
  struct CReader {
    std::unique_ptr<CDecodeAhead> pictures;
    /// Frames since it was used or expected to be.
    int age = 0;
    bool isShowing = false;
  };
  CReader* FindIf(const std::function<bool(const CReader&)>& wanted);
  void Start(CReader* reader, double seconds, double step);

  CMovieStore& store_;
  const std::atomic<bool>& closed_;
  const std::string path_;
  const CLook look_;
  double begin_;
  double duration_;
  CSize size_;
  CPixelBox box_;
  CPixelBox visible_;
  /// One that shows, and at times one that makes ready what comes after a jump back to the beginning.
  std::vector<CReader> readers_;
  /// Against Wake, which another thread calls.
  std::mutex mutex_;
};

}  // namespace vantra::ffmpeg
