// Scans bytes as a GIF file and composes every picture of it.

#include "foundation/Error.h"
#include "graphics/animation/GIFComposer.h"
#include "graphics/animation/GIFPixels.h"
#include "graphics/paint/Toolkit.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

namespace {

/// Larger ones only take time.
constexpr std::uint64_t kMostPixels = std::uint64_t{1} << 20;

void require(bool holds) {
  if (!holds) std::abort();
}

std::uint64_t areaOf(int width, int height) {
  return static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace graphics::animation;
  const graphics::CToolkitLock lock;
  try {
    const CGIFFile file = ScanGIF(std::span(data, size));
    require(file.width > 0 && file.height > 0 && !file.frames.empty());
    std::uint64_t pixels = 0;
    for (const CGIFFrame& frame : file.frames) {
      pixels += areaOf(file.width, file.height) + areaOf(frame.width, frame.height);
      require(frame.data.data() > data && frame.data.data() + frame.data.size() <= data + size);
    }
    if (pixels > kMostPixels) return 0;
    CGIFComposer composer(file);
    for (const CGIFFrame& frame : file.frames) {
      require(DecodeGIFPixels(frame).size() <= areaOf(frame.width, frame.height));
      const wxBitmap picture = composer.Compose(frame);
      require(picture.IsOk() && picture.GetWidth() == file.width && picture.GetHeight() == file.height);
    }
  } catch (const orlo::CException&) {
  }
  return 0;
}
