#include "backend/ffmpeg/DecodeAhead.h"

#include "backend/ffmpeg/Visual.h"

#include <cmath>
#include <exception>
#include <utility>

namespace vantra::ffmpeg {

namespace {

constexpr double kSameTime = 1e-6;
constexpr double kSameStep = 1e-9;
constexpr std::size_t kAhead = 2;
/// Beside the pictures that are ready: the one that is shown, and the one that is made.
constexpr std::int64_t kPicturesInUse = kAhead + 2;

}  // namespace

CDecodeAhead::CDecodeAhead(CMovieStore& store, const std::atomic<bool>& closed, const std::string& path,
                           const CLook& look, int width, int height)
    : store_(store), closed_(closed), path_(path), maker_(look, width, height) {
  const CMovieFacts& facts = store.GetFacts(path);
  const CPixelBox turned = ScaledBeforeRest(facts, look, width, height);
  pixels_ = std::int64_t{turned.width} * turned.height + std::int64_t{width} * height * kPicturesInUse +
            std::int64_t{facts.width} * facts.height;
  store_.Enter(pixels_);
  try {
    thread_ = std::thread([this] {
      Run();
      movie_.reset();
    });
  } catch (...) {
    store_.Leave(pixels_);
    throw;
  }
}

CDecodeAhead::~CDecodeAhead() {
  {
    const std::lock_guard lock(mutex_);
    stopped_ = true;
  }
  changed_.notify_all();
  thread_.join();
  store_.Leave(pixels_);
}

bool CDecodeAhead::Expects(double seconds, double step) const {
  return hasStarted_ && std::abs(expected_ - seconds) < kSameTime && std::abs(step_ - step) < kSameStep;
}

bool CDecodeAhead::ComesTo(double seconds, double step) const {
  if (!hasStarted_ || !(step > 0) || std::abs(step_ - step) >= kSameStep) return Expects(seconds, step);
  const double frames = std::round((seconds - expected_) / step);
  return frames >= 0 && frames <= kFramesAhead && std::abs(expected_ + frames * step - seconds) < kSameTime;
}

void CDecodeAhead::Start(double seconds, double step) {
  hasStarted_ = true;
  expected_ = seconds;
  step_ = step;
  taken_ = 0;
  {
    const std::lock_guard lock(mutex_);
    from_ = seconds;
    stepAhead_ = step;
    produced_ = 0;
    ++start_;
    isIdle_ = false;
    ready_.clear();
  }
  changed_.notify_all();
}

CSharedPicture CDecodeAhead::Next() {
  CSharedPicture picture;
  {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return closed_ || hasFailed_ || !ready_.empty(); });
    if (closed_) return nullptr;
    if (ready_.empty()) {
      // A movie that breaks in the midst keeps its last picture.
      picture = last_;
    } else {
      picture = std::move(ready_.front());
      ready_.pop_front();
    }
    expected_ = from_ + static_cast<double>(++taken_) * step_;
  }
  changed_.notify_all();
  return picture;
}

void CDecodeAhead::Wake() {
  { const std::lock_guard lock(mutex_); }
  changed_.notify_all();
}

std::optional<CFailure> CDecodeAhead::TakeFailure() {
  const std::lock_guard lock(mutex_);
  return std::exchange(failure_, std::nullopt);
}

void CDecodeAhead::Run() {
  std::unique_lock lock(mutex_);
  try {
    while (!stopped_ && !closed_) Work(lock);
    lock.unlock();
    if (movie_ && !closed_) store_.GiveBack(std::move(movie_));
    return;
  } catch (const CFailure& failure) {
    if (!lock.owns_lock()) lock.lock();
    failure_ = failure;
  } catch (const std::exception&) {
    if (!lock.owns_lock()) lock.lock();
    failure_ = CFailure(Fault::memory, "There is not enough memory");
  }
  hasFailed_ = true;
  lock.unlock();
  changed_.notify_all();
}

/// One picture, or a wait until one is wanted.
void CDecodeAhead::Work(std::unique_lock<std::mutex>& lock) {
  if (isIdle_ || ready_.size() >= kAhead) {
    changed_.wait(lock);
    return;
  }
  const std::uint64_t start = start_;
  const double seconds = from_ + static_cast<double>(produced_) * stepAhead_;
  lock.unlock();
  CSharedPicture picture = Produce(seconds);
  lock.lock();
  if (start != start_) return;
  ++produced_;
  ready_.push_back(std::move(picture));
  lock.unlock();
  changed_.notify_all();
  lock.lock();
}

CSharedPicture CDecodeAhead::Produce(double seconds) {
  if (!movie_) movie_ = store_.Take(path_, &stopped_);
  movie_->Begin(&stopped_);
  const AVFrame& frame = movie_->FrameAt(seconds);
  if (last_ && lastNumber_ == movie_->GetFrameNumber()) return last_;
  CSharedPicture picture = maker_.Make(frame, movie_->GetFacts());
  lastNumber_ = movie_->GetFrameNumber();
  const std::lock_guard lock(mutex_);
  last_ = picture;
  return picture;
}

}  // namespace vantra::ffmpeg
