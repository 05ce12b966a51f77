#include "graphics/paint/MaskPictures.h"

#include "graphics/paint/native/BitmapPixels.h"
#include "graphics/paint/native/DrawingTarget.h"
#include "graphics/paint/native/ImageConversion.h"

#include <wx/image.h>

#include <algorithm>
#include <array>
#include <memory>

namespace graphics {

namespace {

constexpr std::uint8_t kTransparencyThreshold = 128;

struct CPixel {
  std::uint8_t* bytes;

  int Colour(int channel) const { return bytes[channel]; }
  int Alpha() const { return bytes[3]; }
  void Set(int channel, int value) { bytes[channel] = static_cast<std::uint8_t>(value); }
};

CPixel PixelAt(const CPixels& pixels, int x, int y) {
  return {pixels.Row(y) + 4 * static_cast<std::ptrdiff_t>(x)};
}

int Scale255(int value, int by) {
  return (value * by + 127) / 255;
}

CBitmapSurface SurfaceWithAlpha(const wxBitmap& bitmap) {
  CBitmapSurface surface(bitmap);
  if (surface.IsOk()) return surface;
  wxBitmap copy = MakeAlphaBitmap(bitmap.GetWidth(), bitmap.GetHeight());
  const std::unique_ptr<wxGraphicsContext> context(TargetOf(copy).context);
  DrawBitmapInto(*context, bitmap, 0, 0, bitmap.GetWidth(), bitmap.GetHeight(), false);
  return CBitmapSurface(copy);
}

/// A picture whose pixels all have the source's alpha, and one grey made from it.
template <class Grey>
wxBitmap FromAlpha(const wxBitmap& bitmap, Grey premultipliedGrey) {
  const CBitmapSurface source = SurfaceWithAlpha(bitmap);
  wxBitmap result = MakeAlphaBitmap(source.Pixels().width, source.Pixels().height);
  const CBitmapSurface target(result);
  for (int y = 0; y < target.Pixels().height; ++y) {
    for (int x = 0; x < target.Pixels().width; ++x) {
      const int alpha = PixelAt(source.Pixels(), x, y).Alpha();
      CPixel pixel = PixelAt(target.Pixels(), x, y);
      for (int channel = 0; channel < 3; ++channel) pixel.Set(channel, premultipliedGrey(alpha));
      pixel.Set(3, alpha);
    }
  }
  target.MarkDirty();
  return result;
}

}  // namespace

wxBitmap AlphaAsGreyOf(const wxBitmap& bitmap) {
  return FromAlpha(bitmap, [](int alpha) { return Scale255(alpha, alpha); });
}

wxBitmap WhiteWithAlphaOf(const wxBitmap& bitmap) {
  return FromAlpha(bitmap, [](int alpha) { return alpha; });
}

wxBitmap BlackAndWhiteOf(const wxBitmap& bitmap) {
  const wxImage source = bitmap.ConvertToImage();
  wxImage result(source.GetWidth(), source.GetHeight());
  for (int y = 0; y < source.GetHeight(); ++y) {
    for (int x = 0; x < source.GetWidth(); ++x) {
      const std::uint8_t grey = source.IsTransparent(x, y, kTransparencyThreshold) ? 0 : 255;
      result.SetRGB(x, y, grey, grey, grey);
    }
  }
  return wxBitmap(result);
}

wxBitmap MaskAsAlphaOf(const wxBitmap& bitmap) {
  const wxImage source = ImageOf(bitmap);
  if (!source.IsOk()) return {};
  wxImage image = source.Copy();
  image.SetMask(false);
  if (!image.HasAlpha()) image.SetAlpha();
  for (int y = 0; y < image.GetHeight(); ++y)
    for (int x = 0; x < image.GetWidth(); ++x)
      image.SetAlpha(x, y, source.IsTransparent(x, y, kTransparencyThreshold) ? 0 : 255);
  return BitmapOf(image);
}

void LimitAlpha(const wxBitmap& bitmap, const wxBitmap& mask) {
  const CBitmapSurface target(bitmap);
  const CBitmapSurface limits(mask);
  for (int y = 0; y < target.Pixels().height; ++y) {
    for (int x = 0; x < target.Pixels().width; ++x) {
      const bool covered = x < limits.Pixels().width && y < limits.Pixels().height;
      const int limit = covered ? PixelAt(limits.Pixels(), x, y).Alpha() : 0;
      CPixel pixel = PixelAt(target.Pixels(), x, y);
      const int alpha = pixel.Alpha();
      if (alpha <= limit) continue;
      for (int channel = 0; channel < 3; ++channel)
        pixel.Set(channel, std::min(limit, (pixel.Colour(channel) * limit + alpha / 2) / alpha));
      pixel.Set(3, limit);
    }
  }
  target.MarkDirty();
}

wxBitmap MergeAlphaMask(const wxBitmap& colour, const wxBitmap& mask, int limit) {
  constexpr int kRed = 2;
  const CBitmapSurface colourSurface = SurfaceWithAlpha(colour);
  const CBitmapSurface maskSurface = SurfaceWithAlpha(mask);
  const CPixels& colours = colourSurface.Pixels();
  const CPixels& masks = maskSurface.Pixels();
  wxBitmap result = MakeAlphaBitmap(colours.width, colours.height);
  const CBitmapSurface target(result);
  for (int y = 0; y < std::min(colours.height, masks.height); ++y) {
    for (int x = 0; x < std::min(colours.width, masks.width); ++x) {
      const CPixel source = PixelAt(colours, x, y);
      CPixel pixel = PixelAt(target.Pixels(), x, y);
      const int alpha = std::clamp(PixelAt(masks, x, y).Colour(kRed), 0, std::clamp(limit, 0, 255));
      const int sourceAlpha = source.Alpha();
      for (int channel = 0; channel < 3; ++channel) {
        const int c = source.Colour(channel);
        pixel.Set(channel, sourceAlpha ? std::min(alpha, (c * alpha + sourceAlpha / 2) / sourceAlpha) : 0);
      }
      pixel.Set(3, alpha);
    }
  }
  target.MarkDirty();
  return result;
}

}  // namespace graphics
