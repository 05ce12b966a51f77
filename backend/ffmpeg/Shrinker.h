#pragma once

#include "backend/ffmpeg/Handles.h"

#include <cstdint>
#include <vector>

namespace vantra::ffmpeg {

/// Averages whole blocks of samples, much faster than a scaler filters them. What is left for the scaler is less than
/// one more block, and the colours of most thumbnails come to lie one to a pixel.
class CShrinker {
public:
  /// The picture with the sides of the target or larger ones; the frame itself where nothing can be done. Stays as it
  /// is until the next call.
  const AVFrame& Shrink(const AVFrame& frame, int width, int height);

private:
  void Prepare(AVPixelFormat format, int width, int height);
  void ShrinkPlane(int plane, const AVFrame& frame, int width, int height, int across, int down);

  CHandle<AVFrame> small_ = Held(av_frame_alloc());
  std::vector<std::uint16_t> sums_;
};

}  // namespace vantra::ffmpeg
