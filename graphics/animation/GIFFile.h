#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace graphics::animation {

/// One image of a GIF file, nothing of it decoded yet.
struct CGIFFrame {
  /// What happens to a frame before the next one is drawn. Other numbers are possible and mean as little as toPrevious.
  enum class EDisposal { unspecified = -1, keep = 0, toBackground = 1, toPrevious = 2 };

  /// On the screen, which it may reach out of.
  int left = 0, top = 0, width = 0, height = 0;
  EDisposal disposal = EDisposal::unspecified;
  /// Index of the colour that draws nothing, -1 for none.
  int transparent = -1;
  /// Milliseconds, -1 if the file doesn't say.
  std::int32_t delay = -1;
  bool interlaced = false;
  /// Its own colours, or the file's: red, green and blue of each.
  std::span<const unsigned char> palette;
  unsigned codeSize = 0;
  /// Chained blocks of compressed pixels, from the length of the first one on.
  std::span<const unsigned char> data;
};

/// The structure of a GIF file. It points into the bytes that it was read from.
struct CGIFFile {
  struct CColour {
    unsigned char red = 0, green = 0, blue = 0;
  };

  /// The screen that all frames are drawn on.
  int width = 0, height = 0;
  /// None if the file has no colours of its own.
  std::optional<CColour> background;
  /// At least one.
  std::vector<CGIFFrame> frames;
};

/// Walks the blocks without decoding anything. A file that ends too early, or goes on with something unknown, ends
/// there. Throws orlo::CError if it is no GIF file or has no frame, and if the pictures of its frames would go beyond
/// the limits of FrameList.h.
CGIFFile ScanGIF(std::span<const unsigned char> bytes);

}  // namespace graphics::animation
