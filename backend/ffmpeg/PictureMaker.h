#pragma once

#include "backend/ffmpeg/Geometry.h"
#include "backend/ffmpeg/MovieFile.h"
#include "backend/ffmpeg/Picture.h"
#include "backend/ffmpeg/Scaler.h"

#include <optional>

namespace vantra::ffmpeg {

/// How the pictures of a movie are shown: made upright, clipped, mirrored, turned clockwise, and then scaled.
struct CLook {
  /// In pixels of the upright picture.
  std::optional<CPixelBox> clip;
  bool mirrorsHorizontally = false;
  bool mirrorsVertically = false;
  double degrees = 0;

  /// The quarter turns in it, and what is left of it: 0 or between 0 and 90.
  int GetQuarterTurns() const;
  double GetRest() const;
};

/// In display pixels, before and after what is no quarter turn. Empty if the clipping rectangle leaves nothing.
CSize SizeBeforeRest(const CMovieFacts& facts, const CLook& look);
CSize SizeOf(const CMovieFacts& facts, const CLook& look);

/// Of the picture that is turned by what is no quarter turn, for a target of that size; empty if nothing is. A target
/// of other proportions gets no more than what can be seen of it.
CPixelBox ScaledBeforeRest(const CMovieFacts& facts, const CLook& look, int width, int height);

/// Scales decoded pictures straight to what is shown.
class CPictureMaker {
public:
  CPictureMaker(const CLook& look, int width, int height)
      : look_(look), width_(width), height_(height), pool_(width, height) {}

  /// Null if the clipping rectangle leaves nothing of it.
  CSharedPicture Make(const AVFrame& frame, const CMovieFacts& facts);

private:
  const AVFrame* Clip(const AVFrame& frame, const CMovieFacts& facts);
  void Bring(const AVFrame& frame, const COrientation& orientation, CPicture& target);

  CLook look_;
  int width_;
  int height_;
  CPicturePool pool_;
  CScaler scaler_;
  CHandle<AVFrame> clipped_ = Held(av_frame_alloc());
  std::optional<CPicture> beforeTransposing_;
  std::optional<CPicture> beforeRest_;
};

}  // namespace vantra::ffmpeg
