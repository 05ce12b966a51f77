#include "filter/FPSAnimation.h"

namespace authfilter {

bool CFPSAnimation::Next() {
  if (finished_) return false;
  ++frameCounter_;
  if (!IsPictureOver()) return true;
  frameCounter_ = 0;
  if (inner_->Next()) return true;
  if (inner_->GetLoop()) {
    inner_->Rewind();
    return true;
  }
  finished_ = true;
  return false;
}

/// Without a frame rate the time is infinite or, where nothing is multiplied with infinity, no number: then the picture
/// stays.
bool CFPSAnimation::IsPictureOver() const {
  const double seconds = static_cast<double>(frameRateDen_) / static_cast<double>(frameRateNum_);
  const double elapsed = static_cast<double>(frameCounter_) * seconds * 1000.0;
  return inner_->GetDelay() < elapsed;
}

orlo::P<graphics::animation::IAnimation> CFPSAnimation::CreateNew() const {
  return orlo::makeObject<CFPSAnimation>(inner_, frameRateNum_, frameRateDen_);
}

}  // namespace authfilter
