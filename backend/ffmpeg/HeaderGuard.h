#pragma once

#include "backend/ffmpeg/Handles.h"

#include <cstdint>
#include <span>
#include <vector>

namespace vantra::ffmpeg {

/// Watches what FFmpeg makes of headers that say by mere numbers how many samples a movie has, as those of MP4 do: a
/// few bytes can ask for gigabytes of index, which nothing interrupts.
class CHeaderGuard {
public:
  /// While the header is read FFmpeg may get no more at once, so that it can't come far before it asks for more.
  static constexpr int kStep = 64;

  CHeaderGuard(const AVFormatContext& format, std::int64_t fileBytes) : format_(format), fileBytes_(fileBytes) {}

  /// Whether FFmpeg may go on, with these bytes next.
  bool MayRead(std::span<const std::uint8_t> bytes);
  /// The header has been read. From now on there are only headers of fragments, between much that is none.
  void EndHeader() { isHeader_ = false; }
  bool IsInHeader() const { return isHeader_; }
  /// Whether there is anything to watch in this format.
  bool IsNeeded() const;

private:
  bool HasBadTable() const;
  bool HasBadFragments() const;

  const AVFormatContext& format_;
  const std::int64_t fileBytes_;
  bool isHeader_ = true;
  std::vector<std::uint8_t> seen_;
};

}  // namespace vantra::ffmpeg
