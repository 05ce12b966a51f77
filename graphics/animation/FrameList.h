#pragma once

#include <wx/bitmap.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace graphics::animation {

/// An animation has at most so many frames, and its pictures take at most so much memory.
constexpr std::int32_t kMaxFrames = 100'000;
constexpr std::uint64_t kMaxFrameBytes = std::uint64_t{512} << 20;

/// Throw orlo::CError if an animation of so many frames or so many bytes is beyond the limits.
void CheckFrameCount(std::uint64_t count);
void CheckFrameBytes(std::uint64_t bytes);

/// The pictures of an animation. Copies of a bitmap share one memory, and so may frames that follow one another.
class CFrameList {
public:
  std::size_t GetCount() const { return frames_.size(); }
  /// Null past the end and for a picture that is not ok.
  const wxBitmap* Get(std::size_t index) const;
  /// Throws orlo::CError beyond the limits. A bitmap that is not ok keeps its place.
  void Append(const wxBitmap& frame);
  void Clear();

private:
  std::vector<wxBitmap> frames_;
  std::uint64_t bytes_ = 0;
};

}  // namespace graphics::animation
