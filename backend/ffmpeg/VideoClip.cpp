#include "backend/ffmpeg/VideoClip.h"

#include "backend/ffmpeg/LastError.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vantra::ffmpeg {

CVideoClip::CVideoClip(CMovieStore& store, const std::atomic<bool>& closed, const std::string& path, const CLook& look,
                       double begin, double length)
    : store_(store), closed_(closed), path_(path), look_(look), begin_(begin > 0 ? begin : 0) {
  const CMovieFacts& facts = store.GetFacts(path);
  size_ = SizeOf(facts, look);
  if (size_.width < 1 || size_.height < 1)
    throw CFailure(Fault::infile, "A clipping rectangle lies outside of the pictures of " + path);
  duration_ = length > 0 ? length : std::max(facts.duration - begin_, 0.0);
}

void CVideoClip::Place(const CBox& place, const CPixelBox& visible) {
  box_ = ToPixels(place);
  visible_ = Intersection(visible, box_);
  if (visible_.IsEmpty()) return;
  if (std::max(box_.width, box_.height) > kMostPixelsWideOrHigh || std::int64_t{box_.width} * box_.height > kMostPixels)
    throw CFailure(Fault::limit, "A movie may be shown at most 16384 pixels wide or high, and 64 megapixels in all");
}

void CVideoClip::See(double seconds, std::vector<CSeen>& seen) {
  if (!visible_.IsEmpty() && seconds < duration_ - kHair) seen.push_back({this, begin_ + std::max(seconds, 0.0)});
}

CVideoClip::CReader* CVideoClip::FindIf(const std::function<bool(const CReader&)>& wanted) {
  const auto found = std::find_if(readers_.begin(), readers_.end(), wanted);
  return found == readers_.end() ? nullptr : &*found;
}

/// Begins anew with that reader, or with one more if it is null.
void CVideoClip::Start(CReader* reader, double seconds, double step) {
  if (reader) {
    reader->pictures->Start(seconds, step);
    reader->age = 0;
    return;
  }
  try {
    auto pictures = std::make_unique<CDecodeAhead>(store_, closed_, path_, look_, box_.width, box_.height);
    pictures->Start(seconds, step);
    const std::lock_guard lock(mutex_);
    readers_.push_back(CReader{std::move(pictures)});
  } catch (const CFailure& failure) {
    SetLastError(failure);
  }
}

void CVideoClip::Request(double seconds, double step) {
  if (FindIf([&](const CReader& reader) { return reader.pictures->Expects(seconds, step); })) return;
  CReader* const showing = FindIf([](const CReader& reader) { return reader.isShowing; });
  Start(showing || readers_.empty() ? showing : &readers_.front(), seconds, step);
}

void CVideoClip::Expect(double seconds, double step) {
  if (CReader* const coming = FindIf([&](const CReader& one) { return one.pictures->ComesTo(seconds, step); })) {
    coming->age = 0;
    return;
  }
  Start(FindIf([](const CReader& reader) { return !reader.isShowing; }), seconds, step);
}

CLayer CVideoClip::Show(double seconds, double step) {
  CReader* const reader = FindIf([&](const CReader& one) { return one.pictures->Expects(seconds, step); });
  if (!reader) return {};
  for (CReader& other : readers_) other.isShowing = &other == reader;
  reader->age = 0;
  CLayer layer{reader->pictures->Next(), box_.x, box_.y, visible_};
  if (const auto failure = reader->pictures->TakeFailure()) SetLastError(*failure);
  return layer;
}

void CVideoClip::Tidy() {
  std::vector<CReader> old;
  const std::lock_guard lock(mutex_);
  for (auto reader = readers_.begin(); reader != readers_.end();) {
    if (++reader->age <= kFramesAhead + 1) {
      ++reader;
      continue;
    }
    old.push_back(std::move(*reader));
    reader = readers_.erase(reader);
  }
}

void CVideoClip::Wake() {
  const std::lock_guard lock(mutex_);
  for (CReader& reader : readers_) reader.pictures->Wake();
}

}  // namespace vantra::ffmpeg
