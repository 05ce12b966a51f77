#include "graphics/animation/FrameList.h"

#include "foundation/Error.h"

namespace graphics::animation {

namespace {

std::uint64_t BytesOf(const wxBitmap& bitmap) {
  constexpr std::uint64_t kBytesPerPixel = 4;
  return static_cast<std::uint64_t>(bitmap.GetWidth()) * static_cast<std::uint64_t>(bitmap.GetHeight()) *
         kBytesPerPixel;
}

}  // namespace

void CheckFrameCount(std::uint64_t count) {
  if (count > static_cast<std::uint64_t>(kMaxFrames)) throw orlo::CError("An animation may have at most 100000 frames");
}

void CheckFrameBytes(std::uint64_t bytes) {
  if (bytes > kMaxFrameBytes) throw orlo::CError("The frames of an animation may take at most 512 MB");
}

const wxBitmap* CFrameList::Get(std::size_t index) const {
  return index < frames_.size() && frames_[index].IsOk() ? &frames_[index] : nullptr;
}

void CFrameList::Append(const wxBitmap& frame) {
  CheckFrameCount(frames_.size() + 1);
  const bool shared = !frames_.empty() && frames_.back().IsSameAs(frame);
  const std::uint64_t bytes = bytes_ + (frame.IsOk() && !shared ? BytesOf(frame) : 0);
  CheckFrameBytes(bytes);
  frames_.push_back(frame);
  bytes_ = bytes;
}

void CFrameList::Clear() {
  frames_.clear();
  bytes_ = 0;
}

}  // namespace graphics::animation
