#include "backend/ffmpeg/Extractor.h"

#include "backend/ffmpeg/Failure.h"
#include "backend/ffmpeg/LastError.h"

#include <cmath>
#include <utility>

namespace vantra::ffmpeg {

namespace {

constexpr double kUsualRate = 25;
/// Infiles round their times: for so long nothing at all between two movies keeps the one before.
constexpr double kRoundingGap = 0.1;

/// Null for none.
orlo::PC<orlo::IURI> FolderOf(const char* uri) {
  if (!uri || !*uri) return nullptr;
  std::string folder = uri;
  if (!folder.ends_with('/')) folder += '/';
  return orlo::createURI(orlo::fromUTF8(folder));
}

}  // namespace

CExtractor::CExtractor(const CExtractorParams& params, const std::string& infile, std::int32_t firstFrame) {
  hasRate_ = params.frameRateNum > 0 && params.frameRateDen > 0;
  frameLength_ = hasRate_ ? static_cast<double>(params.frameRateDen) / params.frameRateNum : 1 / kUsualRate;
  step_ = frameLength_;
  base_ = time_ = frameLength_ * std::max(firstFrame, 0);
  CVisualBuilder builder(store_, isClosed_, {FolderOf(params.animationDir), FolderOf(params.themeDir)});
  visual_ = builder.Build(infile);
  leaves_ = builder.GetLeaves();
  skipped_ = builder.GetSkipped();
  if (!visual_ && !skipped_.empty()) throw CFailure(Fault::skipped, skipped_);
  if (!visual_) throw CFailure(Fault::infile, "An infile shows nothing");
  ChooseSize(params, visual_->GetSize());
  visual_->Place({0, 0, static_cast<double>(width_), static_cast<double>(height_)}, {0, 0, width_, height_});
  composer_ = std::make_unique<CComposer>(width_, height_);
}

CExtractor::~CExtractor() {
  Close();
}

void CExtractor::ChooseSize(const CExtractorParams& params, const CSize& movie) {
  if (!(movie.width > 0 && movie.height > 0)) throw CFailure(Fault::infile, "An infile shows nothing that has a size");
  double width = movie.width;
  if (params.width > 0 && params.height > 0)
    width = std::min<double>(params.width, params.height * movie.width / movie.height);
  else if (params.width > 0)
    width = params.width;
  else if (params.height > 0)
    width = params.height * movie.width / movie.height;
  if (params.maxWidth > 0) width = std::min<double>(width, params.maxWidth);
  const CPixelBox size = ToPixels({0, 0, width, width * movie.height / movie.width});
  if (std::max(size.width, size.height) > kMostPixelsWideOrHigh || std::int64_t{size.width} * size.height > kMostPixels)
    throw CFailure(Fault::limit, "A picture may be at most 16384 pixels wide or high, and have 64 megapixels");
  width_ = size.width;
  height_ = size.height;
}

void CExtractor::Seek(double seconds, std::int32_t) {
  base_ = std::isfinite(seconds) && seconds > 0 ? seconds : 0;
  frames_ = 0;
}

void CExtractor::SetSpeed(double speed) {
  if (!std::isfinite(speed) || speed < 0) return;
  base_ += static_cast<double>(frames_) * step_;
  frames_ = 0;
  step_ = frameLength_ * speed;
}

bool CExtractor::Advance() {
  if (!isStarted_ || isClosed_) return false;
  const double seconds = base_ + static_cast<double>(frames_) * step_;
  if (seconds >= visual_->GetDuration() - kHair) return false;
  ++frames_;
  time_ = seconds;
  const bool isNew = Guarded([&] { return ShowFrame(seconds); });
  return isNew || (!hasRate_ && picture_ && !isClosed_);
}

bool CExtractor::ShowFrame(double seconds) {
  seen_.clear();
  visual_->See(seconds, seen_);
  for (const CSeen& seen : seen_) seen.leaf->Request(seen.seconds, step_);
  expected_.clear();
  visual_->See(seconds + kFramesAhead * step_, expected_);
  layers_.clear();
  for (const CSeen& seen : seen_)
    if (CLayer layer = seen.leaf->Show(seen.seconds, step_); layer.picture) layers_.push_back(std::move(layer));
  for (const CSeen& seen : expected_) seen.leaf->Expect(seen.seconds, step_);
  for (ILeaf* const leaf : leaves_) leaf->Tidy();
  if (isClosed_) return false;
  if (layers_.empty() && picture_ && std::abs(seconds - shownTime_) < kRoundingGap) return false;
  if (!layers_.empty()) shownTime_ = seconds;
  if (picture_ && layers_ == shown_) return false;
  picture_ = composer_->Compose(layers_);
  shown_ = layers_;
  return true;
}

void CExtractor::Close() {
  isClosed_ = true;
  for (ILeaf* const leaf : leaves_) leaf->Wake();
}

void CExtractor::LockFrame(const std::uint8_t** pixels, std::int32_t* stride) {
  locked_ = picture_;
  if (pixels) *pixels = locked_ ? locked_->GetRow(0) : nullptr;
  if (stride) *stride = locked_ ? locked_->GetStride() : 0;
}

}  // namespace vantra::ffmpeg
