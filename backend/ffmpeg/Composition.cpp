#include "backend/ffmpeg/Composition.h"

#include "backend/ffmpeg/Failure.h"
#include "backend/ffmpeg/Limits.h"

#include <cmath>
#include <limits>

namespace vantra::ffmpeg {

namespace {

constexpr double kEndless = std::numeric_limits<double>::infinity();

bool FillsWhole(const CBox& place) {
  return place.x == 0 && place.y == 0 && place.width <= 0 && place.height <= 0;
}

/// Completes a place by the proportions of what it shows.
CBox Completed(CBox place, const CSize& size) {
  const bool hasSize = size.width > 0 && size.height > 0;
  if (place.width <= 0 && place.height <= 0) {
    place.width = size.width;
    place.height = size.height;
  } else if (place.width <= 0) {
    place.width = hasSize ? place.height * size.width / size.height : place.height;
  } else if (place.height <= 0) {
    place.height = hasSize ? place.width * size.height / size.width : place.width;
  }
  return place;
}

/// As large as it can be with its proportions; what misses less than a pixel is stretched.
CBox Fitted(const CBox& whole, const CSize& size) {
  if (size.width <= 0 || size.height <= 0) return whole;
  const double scale = std::min(whole.width / size.width, whole.height / size.height);
  CBox box = whole;
  if (whole.width - size.width * scale >= 1) box.width = size.width * scale;
  if (whole.height - size.height * scale >= 1) box.height = size.height * scale;
  box.x += (whole.width - box.width) / 2;
  box.y += (whole.height - box.height) / 2;
  return box;
}

double LengthOf(const CComposition::CPart& part) {
  return part.duration > 0 ? part.duration : part.visual->GetDuration();
}

}  // namespace

CSize CComposition::GetSize() const {
  if (!knownSize_) knownSize_ = FindSize();
  return *knownSize_;
}

double CComposition::GetDuration() const {
  if (!knownDuration_) knownDuration_ = FindDuration();
  return *knownDuration_;
}

CSize CComposition::FindSize() const {
  if (size_.width > 0 && size_.height > 0) return size_;
  for (const CPart& part : parts_) {
    const CSize size = part.visual->GetSize();
    if (FillsWhole(part.place) && size.width > 0) return size;
  }
  CSize size;
  for (const CPart& part : parts_) {
    const CBox box = Completed(part.place, part.visual->GetSize());
    size.width = std::max(size.width, box.x + box.width);
    size.height = std::max(size.height, box.y + box.height);
  }
  return size;
}

double CComposition::FindDuration() const {
  if (duration_ > 0) return duration_;
  double end = 0;
  for (const bool isBackground : {false, true}) {
    for (const CPart& part : parts_)
      if (part.isBackground == isBackground) end = std::max(end, part.start + LengthOf(part));
    if (end > 0) break;
  }
  return end;
}

void CComposition::Place(const CBox& place, const CPixelBox& visible) {
  const CSize size = GetSize();
  const CPixelBox seen = Intersection(visible, ToPixels(place));
  const double across = place.width / std::max(size.width, 1e-9);
  const double down = place.height / std::max(size.height, 1e-9);
  for (const CPart& part : parts_) {
    const CSize partSize = part.visual->GetSize();
    if (FillsWhole(part.place)) {
      part.visual->Place(Fitted(place, partSize), seen);
      continue;
    }
    const CBox box = Completed(part.place, partSize);
    part.visual->Place({place.x + box.x * across, place.y + box.y * down, box.width * across, box.height * down}, seen);
  }
}

void CComposition::See(double seconds, std::vector<CSeen>& seen) {
  if (seconds >= GetDuration() - kHair) return;
  for (const CPart& part : parts_) {
    const double own = seconds - part.start + kHair;
    if (own >= 0 && own < LengthOf(part)) part.visual->See(std::max(own - kHair, 0.0), seen);
  }
}

double CRepeated::GetDuration() const {
  return kEndless;
}

void CRepeated::See(double seconds, std::vector<CSeen>& seen) {
  constexpr double kShortest = 1e-3;
  const double duration = visual_->GetDuration();
  if (!std::isfinite(duration) || duration < kShortest)
    return visual_->See(std::isfinite(duration) ? 0 : seconds, seen);
  double own = std::fmod(seconds, duration);
  if (duration - own < kHair) own = 0;
  visual_->See(own, seen);
}

double CColourField::GetDuration() const {
  return kEndless;
}

void CColourField::Place(const CBox& place, const CPixelBox& visible) {
  const CPixelBox box = Intersection(ToPixels(place), visible);
  if (box.IsEmpty() || pixel_[3] == 0) return;
  if (std::int64_t{box.width} * box.height > kMostPixels)
    throw CFailure(Fault::limit, "A colour may fill at most 64 megapixels");
  store_.TakeRoom(std::int64_t{box.width} * box.height);
  layer_ = {ColouredPicture(box.width, box.height, pixel_), box.x, box.y, box};
}

void CColourField::See(double, std::vector<CSeen>& seen) {
  if (layer_.picture) seen.push_back({this, 0});
}

}  // namespace vantra::ffmpeg
