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

  /// From one format and size to another. Samples of 8 bits are scaled as they are and then converted, for FFmpeg's
  /// scaler is slow at doing both.
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
      AVPixelFormat targetFormat;
      CColours colours;
      bool operator==(const CKey&) const = default;
    };
    void Prepare(const CKey& key);
    const AVFrame& ScaleSamples(const AVFrame& frame, const CKey& key);

    std::optional<CKey> key_;
    CHandle<SwsContext> scaler_;
    CHandle<AVFrame> samples_ = Held(av_frame_alloc());
  };

  CShrinker shrinker_;
  CStep converter_;
  CStep scaler_;
  std::optional<CPicture> whole_;
  CHandle<AVFrame> part_ = Held(av_frame_alloc());
};

}  // namespace vantra::ffmpeg
