#pragma once

#include "graphics/animation/GIFFile.h"

#include <wx/bitmap.h>

#include <cstdint>
#include <vector>

namespace graphics::animation {

/// Makes the pictures of a GIF file one after the other, each from what the ones before it leave on the screen. The
/// screen begins in the file's background colour, so that pictures are opaque throughout; without such a colour it is
/// black.
class CGIFComposer {
public:
  /// The file must outlive this object. Throws orlo::CError if there can be no bitmap of its size.
  explicit CGIFComposer(const CGIFFile& file);

  /// The picture that shows the file's next frame. If it is the same as the one before, the bitmaps share their memory.
  wxBitmap Compose(const CGIFFrame& frame);

private:
  /// Blue, green, red and alpha from the low byte on.
  using CPixel = std::uint32_t;

  struct CArea {
    int left, top, right, bottom;
  };

  CArea Clip(const CGIFFrame& frame) const;
  CPixel* Row(std::vector<CPixel>& pixels, int y) const;
  void Draw(const CGIFFrame& frame, const CArea& area);
  void Dispose(const CGIFFrame& frame, const CArea& area);
  bool ShowsPicture() const;

  const CGIFFile& file_;
  CPixel background_;
  /// What the next frame is drawn on.
  std::vector<CPixel> screen_;
  std::vector<CPixel> picture_;
  wxBitmap bitmap_;
};

}  // namespace graphics::animation
