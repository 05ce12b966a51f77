#pragma once

#include "backend/ffmpeg/Handles.h"
#include "backend/ffmpeg/Picture.h"

#include <optional>

namespace vantra::ffmpeg {

/// Brings decoded pictures to BGRA and to a size, with the matrix and the range of their colours. Straight alpha comes
/// out premultiplied.
class CScaler {
public:
  /// Fills the target with what the frame's cropping leaves of it. Upside down costs nothing.
  void Scale(const AVFrame& frame, CPicture& target, bool upsideDown);

private:
  /// From one format and size to another.
  class CStep {
  public:
    void Run(const AVFrame& frame, CPicture& target, bool upsideDown);

  private:
    struct CKey {
      int width = 0;
      int height = 0;
      int targetWidth = 0;
      int targetHeight = 0;
      AVPixelFormat format = AV_PIX_FMT_NONE;
      int matrix = 0;
      bool isFullRange = false;
      bool operator==(const CKey&) const = default;
    };
    void Prepare(const CKey& key);

    CKey key_;
    CHandle<SwsContext> scaler_;
  };

  CStep converter_;
  CStep scaler_;
  std::optional<CPicture> whole_;
  CHandle<AVFrame> part_ = Held(av_frame_alloc());
};

}  // namespace vantra::ffmpeg
