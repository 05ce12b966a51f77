#include "graphics/paint/native/BitmapPixels.h"

#include "foundation/Error.h"

#include <cairo.h>

#include <utility>

namespace graphics {

wxBitmap MakeAlphaBitmap(int width, int height) {
  if (width < 1 || height < 1) throw orlo::CError("A bitmap must have at least one pixel");
  if (width > kLargestBitmapEdge || height > kLargestBitmapEdge)
    throw orlo::CError("A bitmap may be at most 32767 pixels wide and high");
  if (std::int64_t{width} * height > kLargestBitmapArea)
    throw orlo::CError("A bitmap may have at most 268435456 pixels");
  wxBitmap bitmap(width, height, 32);
  if (!CBitmapSurface(bitmap).IsOk()) throw orlo::CError("There is no memory for a bitmap");
  return bitmap;
}

CBitmapSurface::CBitmapSurface(const wxBitmap& bitmap) {
  if (!bitmap.IsOk()) return;
  cairo_t* const context = bitmap.CairoCreate();
  cairo_surface_t* const target = cairo_get_target(context);
  if (cairo_status(context) == CAIRO_STATUS_SUCCESS && cairo_surface_get_type(target) == CAIRO_SURFACE_TYPE_IMAGE &&
      cairo_image_surface_get_format(target) == CAIRO_FORMAT_ARGB32) {
    surface_ = cairo_surface_reference(target);
    Flush();
    pixels_ = {cairo_image_surface_get_data(target), cairo_image_surface_get_stride(target),
               cairo_image_surface_get_width(target), cairo_image_surface_get_height(target)};
  }
  cairo_destroy(context);
}

CBitmapSurface::CBitmapSurface(const CBitmapSurface& other)
    : surface_(other.surface_ ? cairo_surface_reference(other.surface_) : nullptr), pixels_(other.pixels_) {}

CBitmapSurface::CBitmapSurface(CBitmapSurface&& other) noexcept
    : surface_(std::exchange(other.surface_, nullptr)), pixels_(std::exchange(other.pixels_, {})) {}

CBitmapSurface& CBitmapSurface::operator=(CBitmapSurface other) noexcept {
  std::swap(surface_, other.surface_);
  std::swap(pixels_, other.pixels_);
  return *this;
}

CBitmapSurface::~CBitmapSurface() {
  if (surface_) cairo_surface_destroy(surface_);
}

void CBitmapSurface::Flush() const {
  if (surface_) cairo_surface_flush(surface_);
}

void CBitmapSurface::MarkDirty() const {
  if (surface_) cairo_surface_mark_dirty(surface_);
}

}  // namespace graphics
