#include "backend/ffmpeg/PictureMaker.h"

#include "backend/ffmpeg/Turning.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vantra::ffmpeg {

namespace {

/// Between 0 and 360. A hair beside a quarter turn is that turn.
double Turned(double degrees) {
  constexpr double kHair = 1e-6;
  double turn = std::fmod(degrees, 360);
  if (!std::isfinite(turn)) return 0;
  if (const double quarter = std::round(turn / 90) * 90; std::abs(turn - quarter) < kHair) turn = quarter;
  return turn < 0 ? turn + 360 : turn;
}

/// The part of the stored picture that the clipping rectangle of the upright one means.
CPixelBox StoredClip(const AVFrame& frame, const COrientation& upright, const CPixelBox& clip) {
  const int width = upright.IsTransposed() ? frame.height : frame.width;
  const int height = upright.IsTransposed() ? frame.width : frame.height;
  CPixelBox box = Intersection(clip, {0, 0, width, height});
  if (upright.IsMirroredX()) box.x = width - box.x - box.width;
  if (upright.IsMirroredY()) box.y = height - box.y - box.height;
  return upright.IsTransposed() ? CPixelBox{box.y, box.x, box.height, box.width} : box;
}

}  // namespace

int CLook::GetQuarterTurns() const {
  return static_cast<int>(Turned(degrees) / 90) % 4;
}

double CLook::GetRest() const {
  return std::fmod(Turned(degrees), 90);
}

CSize SizeBeforeRest(const CMovieFacts& facts, const CLook& look) {
  int width = facts.width;
  int height = facts.height;
  double across = facts.pixelAspect;
  double down = 1;
  if (facts.upright.IsTransposed()) {
    std::swap(width, height);
    std::swap(across, down);
  }
  const CPixelBox whole{0, 0, width, height};
  const CPixelBox seen = look.clip ? Intersection(*look.clip, whole) : whole;
  CSize size{seen.width * across, seen.height * down};
  if (look.GetQuarterTurns() % 2 == 1) std::swap(size.width, size.height);
  return size;
}

CSize SizeOf(const CMovieFacts& facts, const CLook& look) {
  return SizeOfTurned(SizeBeforeRest(facts, look), look.GetRest());
}

CPixelBox ScaledBeforeRest(const CMovieFacts& facts, const CLook& look, int width, int height) {
  if (look.GetRest() == 0) return {};
  const CSize size = SizeBeforeRest(facts, look);
  const CSize turned = SizeOfTurned(size, look.GetRest());
  constexpr double kFewPixels = 1 << 20;
  const double most = std::max(4.0 * width * height, kFewPixels);
  const double scale =
      std::min(std::max(width / turned.width, height / turned.height), std::sqrt(most / (size.width * size.height)));
  const auto side = [&](double length) { return std::clamp(RoundToPixel(length * scale), 1, kMostPixelsWideOrHigh); };
  return {0, 0, side(size.width), side(size.height)};
}

CSharedPicture CPictureMaker::Make(const AVFrame& frame, const CMovieFacts& facts) {
  const AVFrame* const seen = look_.clip ? Clip(frame, facts) : &frame;
  if (!seen) return nullptr;
  const COrientation orientation =
      facts.upright.Then(COrientation::Mirror(look_.mirrorsHorizontally, look_.mirrorsVertically))
          .Then(COrientation::QuarterTurns(look_.GetQuarterTurns()));
  const std::shared_ptr<CPicture> picture = pool_.Get();
  const double rest = look_.GetRest();
  if (rest == 0) {
    Bring(*seen, orientation, *picture);
    return picture;
  }
  if (!beforeRest_) {
    const CPixelBox scaled = ScaledBeforeRest(facts, look_, width_, height_);
    beforeRest_.emplace(scaled.width, scaled.height);
  }
  Bring(*seen, orientation, *beforeRest_);
  RotateInto(*picture, *beforeRest_, rest, SizeBeforeRest(facts, look_));
  return picture;
}

const AVFrame* CPictureMaker::Clip(const AVFrame& frame, const CMovieFacts& facts) {
  const CPixelBox box = StoredClip(frame, facts.upright, *look_.clip);
  if (box.IsEmpty()) return nullptr;
  av_frame_unref(clipped_.get());
  if (av_frame_ref(clipped_.get(), &frame) < 0) throw std::bad_alloc();
  clipped_->crop_left = static_cast<std::size_t>(box.x);
  clipped_->crop_top = static_cast<std::size_t>(box.y);
  clipped_->crop_right = static_cast<std::size_t>(frame.width - box.x - box.width);
  clipped_->crop_bottom = static_cast<std::size_t>(frame.height - box.y - box.height);
  return clipped_.get();
}

void CPictureMaker::Bring(const AVFrame& frame, const COrientation& orientation, CPicture& target) {
  if (!orientation.IsTransposed()) {
    scaler_.Scale(frame, target, orientation.IsMirroredY());
    if (orientation.IsMirroredX()) MirrorRows(target);
    return;
  }
  if (!beforeTransposing_) beforeTransposing_.emplace(target.GetHeight(), target.GetWidth());
  scaler_.Scale(frame, *beforeTransposing_, false);
  TurnInto(target, *beforeTransposing_, orientation);
}

}  // namespace vantra::ffmpeg
