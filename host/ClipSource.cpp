#include "host/ClipSource.h"

#include "host/Errors.h"

#include <utility>

namespace host {

ClipSource::ClipSource(const std::string& path) : path_(path), reader_(path), current_(reader_.next()) {
  if (!current_) throw InputError(located(path, "no picture in it could be decoded"));
  if (!reader_.size().isUsable())
    throw InputError(located(path, "its size " + reader_.size().text() + " is too large"));
  startTime_ = reader_.timeOf(*current_);
  next_ = reader_.next();
  still_ = !next_;
}

std::optional<FrameRate> ClipSource::rate() const {
  if (still_) return {};
  return reader_.rate();
}

void ClipSource::start(Size size, FrameRate rate) {
  wantedRate_ = rate;
  scaler_.emplace(size);
}

void ClipSource::advance() {
  current_ = std::move(next_);
  next_ = reader_.next();
  fresh_ = true;
}

bool ClipSource::seek(std::int64_t frame) {
  if (still_) return true;
  // Containers round times; a quarter of a picture's duration of tolerance keeps that from shifting pictures by one.
  const double interval = 1 / reader_.rate().framesPerSecond();
  const double time = wantedRate_.timeOf(frame) + interval / 4;
  while (next_ && timeOf(*next_) <= time) advance();
  return next_ || time < timeOf(*current_) + interval;
}

std::optional<PictureView> ClipSource::freshPicture() {
  if (!std::exchange(fresh_, false)) return {};
  if (!scaler_->convert(*current_))
    throw InputError(located(path_, "its pictures are of a format that is not supported"));
  return scaler_->picture();
}

}  // namespace host
