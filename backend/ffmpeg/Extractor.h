#pragma once

#include "backend/ffmpeg/Compose.h"
#include "backend/ffmpeg/VisualBuilder.h"
#include "backend/handler/BackendObject.h"
#include "foundation/Pointer.h"

#include <atomic>
#include <memory>
#include <string>
#include <vector>

namespace vantra::ffmpeg {

/// Plays an infile frame by frame of the host.
class CExtractor : public TBackendObject<IAnimationExtractor> {
public:
  /// Throws CFailure, and what reading an infile throws.
  CExtractor(const CExtractorParams& params, const std::string& infile, std::int32_t firstFrame);
  ~CExtractor() override;

  void Start() override { isStarted_ = true; }
  void Seek(double seconds, std::int32_t mode) override;
  bool Advance() override;
  double GetTime() override { return time_; }
  void SetMessageTarget(IMessage* message) override { message_ = message; }

  std::int32_t GetWidth() override { return width_; }
  std::int32_t GetHeight() override { return height_; }
  void Close() override;
  void LockFrame(const std::uint8_t** pixels, std::int32_t* stride) override;
  void UnlockFrame() override { locked_ = nullptr; }
  void SetSpeed(double speed) override;
  orlo::String getDescription() const override { return "Animation extractor"; }

  /// What of the infile is not played, empty for nothing.
  const std::string& GetSkipped() const { return skipped_; }

private:
  bool ShowFrame(double seconds);
  void ChooseSize(const CExtractorParams& params, const CSize& movie);

  std::atomic<bool> isClosed_{false};
  CMovieStore store_{isClosed_};
  std::vector<ILeaf*> leaves_;
  std::unique_ptr<IVisual> visual_;
  std::string skipped_;
  int width_ = 0;
  int height_ = 0;
  std::unique_ptr<CComposer> composer_;
  orlo::P<IMessage> message_;

  bool isStarted_ = false;
  /// Frames are counted. Otherwise a view asks when it is time, and takes false for the end.
  bool hasRate_ = false;
  double frameLength_ = 0;
  double step_ = 0;
  /// The frames since a time.
  double base_ = 0;
  std::int64_t frames_ = 0;
  double time_ = 0;

  std::vector<CSeen> seen_;
  std::vector<CSeen> expected_;
  std::vector<CLayer> layers_;
  std::vector<CLayer> shown_;
  double shownTime_ = 0;
  CSharedPicture picture_;
  CSharedPicture locked_;
};

}  // namespace vantra::ffmpeg
