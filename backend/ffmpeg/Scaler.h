#pragma once

#include "backend/ffmpeg/Handles.h"
#include "backend/ffmpeg/Picture.h"
#include "backend/ffmpeg/Shrinker.h"

#include <optional>

namespace vantra::ffmpeg {

/// Brings decoded pictures to BGRA and to a size, with the matrix and the range of their colours. Straight alpha comes
/// out premultiplied.
class CScaler {
public:
  /// Fills the target with what the frame's cropping leaves of it. Upside down costs nothing.
  void Scale(const AVFrame& frame, CPicture& target, bool upsideDown);

private:
  /// What the numbers of a pixel mean.
  struct CColours {
    explicit CColours(const AVFrame& frame);
    bool operator==(const CColours&) const = default;

    int matrix;
    bool isFullRange;
  };

  /// From one format and size to another.
  class CStep {
  public:
    void Run(const AVFrame& frame, const CColours& colours, CPicture& target, bool upsideDown);

  private:
    struct CKey {
      int width;
      int height;
      int targetWidth;
      int targetHeight;
      AVPixelFormat format;
      CColours colours;
      bool operator==(const CKey&) const = default;
    };
    void Prepare(const CKey& key);

    std::optional<CKey> key_;
    CHandle<SwsContext> scaler_;
  };

  CShrinker shrinker_;
  CStep converter_;
  CStep scaler_;
  std::optional<CPicture> whole_;
  CHandle<AVFrame> part_ = Held(av_frame_alloc());
};

}  // namespace vantra::ffmpeg
