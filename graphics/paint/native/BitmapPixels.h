#pragma once

#include <wx/bitmap.h>

#include <cstddef>
#include <cstdint>

typedef struct _cairo_surface cairo_surface_t;

namespace graphics {

/// The memory of a picture: height rows of stride bytes, the top row first, each pixel the bytes B, G, R, A with the
/// colours premultiplied by alpha.
struct CPixels {
  std::uint8_t* data = nullptr;
  std::int32_t stride = 0;
  int width = 0;
  int height = 0;

  std::uint8_t* Row(int y) const { return data + static_cast<std::ptrdiff_t>(y) * stride; }
};

/// Largest width and height of a bitmap, and its largest number of pixels.
constexpr int kLargestBitmapEdge = 32767;
constexpr std::int64_t kLargestBitmapArea = std::int64_t{1} << 28;

/// A bitmap of 32 bits a pixel with alpha, cleared to transparent. Throws orlo::CError if a size is below 1, above
/// the limits or if there is no memory for it.
wxBitmap MakeAlphaBitmap(int width, int height);

/// Holds a bitmap's own memory: the address stays for the life of the bitmap, and the memory lives on while a surface
/// refers to it. Nothing is copied or converted. A wxImage made from the bitmap shows pixels that were changed here
/// only if a surface or a context was made on the bitmap after the last such image. Making one needs the toolkit's
/// lock; reading and writing the pixels of a bitmap that nobody draws on doesn't.
class CBitmapSurface {
public:
  CBitmapSurface() = default;
  /// The bitmap must be one that MakeAlphaBitmap has made; any other one that has no such memory gives a surface
  /// that is not ok.
  explicit CBitmapSurface(const wxBitmap& bitmap);
  CBitmapSurface(const CBitmapSurface& other);
  CBitmapSurface(CBitmapSurface&& other) noexcept;
  CBitmapSurface& operator=(CBitmapSurface other) noexcept;
  ~CBitmapSurface();

  bool IsOk() const { return surface_ != nullptr; }
  const CPixels& Pixels() const { return pixels_; }

  /// Call it after drawing and before the first look at the pixels.
  void Flush() const;
  /// Call it after changing pixels and before the next drawing.
  void MarkDirty() const;

  cairo_surface_t* GetNative() const { return surface_; }

private:
  cairo_surface_t* surface_ = nullptr;
  CPixels pixels_;
};

}  // namespace graphics
