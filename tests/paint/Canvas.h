#pragma once

#include "graphics/paint/EffectDC.h"
#include "graphics/paint/Toolkit.h"
#include "graphics/paint/native/BitmapPixels.h"

#include <wx/bitmap.h>

#include <cstdint>
#include <cstdlib>
#include <ostream>

namespace graphics::test {

/// A pixel as it lies in memory, with the colours premultiplied.
struct CPixel {
  int red = 0, green = 0, blue = 0, alpha = 0;

  bool operator==(const CPixel&) const = default;
  friend std::ostream& operator<<(std::ostream& out, const CPixel& pixel) {
    return out << '(' << pixel.red << ", " << pixel.green << ", " << pixel.blue << ", " << pixel.alpha << ')';
  }
};

constexpr CPixel kClear{};
constexpr CPixel kBlack{0, 0, 0, 255};
constexpr CPixel kWhite{255, 255, 255, 255};
constexpr CPixel kRed{255, 0, 0, 255};
constexpr CPixel kBlue{0, 0, 255, 255};

inline CPixel PixelOf(const wxBitmap& bitmap, int x, int y) {
  const CBitmapSurface surface(bitmap);
  const std::uint8_t* const bytes = surface.Pixels().Row(y) + 4 * static_cast<std::ptrdiff_t>(x);
  return {bytes[2], bytes[1], bytes[0], bytes[3]};
}

inline void SetPixelOf(wxBitmap& bitmap, int x, int y, CPixel pixel) {
  const CBitmapSurface surface(bitmap);
  std::uint8_t* const bytes = surface.Pixels().Row(y) + 4 * static_cast<std::ptrdiff_t>(x);
  bytes[0] = static_cast<std::uint8_t>(pixel.blue);
  bytes[1] = static_cast<std::uint8_t>(pixel.green);
  bytes[2] = static_cast<std::uint8_t>(pixel.red);
  bytes[3] = static_cast<std::uint8_t>(pixel.alpha);
  surface.MarkDirty();
}

/// The pixels that are not fully transparent: their smallest rectangle and their number.
struct CInk {
  wxRect bounds;
  int count = 0;
};

inline CInk InkOf(const wxBitmap& bitmap) {
  CInk ink;
  const CBitmapSurface surface(bitmap);
  for (int y = 0; y < surface.Pixels().height; ++y) {
    for (int x = 0; x < surface.Pixels().width; ++x) {
      if (surface.Pixels().Row(y)[4 * x + 3] == 0) continue;
      ink.bounds.Union(wxRect(x, y, 1, 1));
      ++ink.count;
    }
  }
  return ink;
}

/// A cleared bitmap with an effect context on it, under the toolkit's lock.
class CCanvas {
public:
  explicit CCanvas(int width = 60, int height = 40) : bitmap(MakeAlphaBitmap(width, height)), dc(bitmap) {}

  CPixel At(int x, int y) const { return PixelOf(bitmap, x, y); }
  CInk Ink() const { return InkOf(bitmap); }

private:
  CToolkitLock lock_;

public:
  wxBitmap bitmap;
  CBitmapEffectDC dc;
};

}  // namespace graphics::test
