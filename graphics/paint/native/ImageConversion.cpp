#include "graphics/paint/native/ImageConversion.h"

#include <cairo.h>

namespace graphics {

namespace {

/// A context on a bitmap makes its surface, and then the toolkit drops what it has beside that.
bool KeepOnlySurface(const wxBitmap& bitmap) {
  cairo_t* const context = bitmap.CairoCreate();
  const bool ok = cairo_status(context) == CAIRO_STATUS_SUCCESS;
  cairo_destroy(context);
  return ok;
}

}  // namespace

wxBitmap BitmapOf(const wxImage& image) {
  if (!image.IsOk()) return {};
  wxBitmap bitmap(image);
  return bitmap.IsOk() && KeepOnlySurface(bitmap) ? bitmap : wxBitmap();
}

wxImage ImageOf(const wxBitmap& bitmap) {
  if (!bitmap.IsOk()) return {};
  wxImage image = bitmap.ConvertToImage();
  KeepOnlySurface(bitmap);
  if (image.HasMask()) image.InitAlpha();
  return image;
}

}  // namespace graphics
