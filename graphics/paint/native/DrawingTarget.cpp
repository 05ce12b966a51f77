#include "graphics/paint/native/DrawingTarget.h"

#include "graphics/paint/native/NativeState.h"

#include <cairo.h>

#include <cmath>

namespace graphics {

namespace {

constexpr double kSmallestExtent = 1.0 / 256;
constexpr double kLargestExtent = 1.0e6;

cairo_t* NativeOf(wxGraphicsContext& context) {
  return static_cast<cairo_t*>(context.GetNativeContext());
}

/// Takes over the native context.
wxGraphicsContext* WrapNative(cairo_t* native) {
  wxGraphicsContext* const context = wxGraphicsRenderer::GetDefaultRenderer()->CreateContextFromNativeContext(native);
  cairo_destroy(native);
  return context;
}

void ClipLike(cairo_t* native, cairo_t* source) {
  double left = 0, top = 0, right = 0, bottom = 0;
  cairo_save(source);
  cairo_identity_matrix(source);
  cairo_clip_extents(source, &left, &top, &right, &bottom);
  cairo_restore(source);
  cairo_rectangle(native, left, top, right - left, bottom - top);
  cairo_clip(native);
}

bool IsDrawable(double extent) {
  return std::isfinite(extent) && std::abs(extent) >= kSmallestExtent && std::abs(extent) <= kLargestExtent;
}

}  // namespace

CDrawingTarget TargetOf(wxBitmap& bitmap) {
  if (!bitmap.IsOk()) return {};
  return {WrapNative(bitmap.CairoCreate()), bitmap.GetSize()};
}

CDrawingTarget TargetOf(wxDC& dc) {
  auto* const source = static_cast<cairo_t*>(dc.GetImpl()->GetCairoContext());
  if (!source) return {};
  cairo_t* const native = cairo_create(cairo_get_target(source));
  ClipLike(native, source);
  return {WrapNative(native), dc.GetSize()};
}

void FillPixels(wxGraphicsContext& context, double x, double y, double width, double height, const wxColour& colour) {
  cairo_t* const native = NativeOf(context);
  cairo_save(native);
  cairo_set_source_rgba(native, colour.Red() / 255.0, colour.Green() / 255.0, colour.Blue() / 255.0,
                        colour.Alpha() / 255.0);
  cairo_new_path(native);
  cairo_rectangle(native, x, y, width, height);
  cairo_fill(native);
  cairo_restore(native);
}

void DrawBitmapInto(wxGraphicsContext& context, const wxBitmap& bitmap, double x, double y, double width, double height,
                    bool useMask) {
  if (!bitmap.IsOk() || !std::isfinite(x) || !std::isfinite(y) || !IsDrawable(width) || !IsDrawable(height)) return;
  const double columns = bitmap.GetWidth();
  const double rows = bitmap.GetHeight();
  cairo_t* const native = NativeOf(context);
  cairo_save(native);
  cairo_translate(native, x, y);
  cairo_scale(native, width / columns, height / rows);
  bitmap.SetSourceSurface(native, 0, 0);
  cairo_pattern_t* const pattern = cairo_get_source(native);
  cairo_pattern_set_filter(pattern, static_cast<cairo_filter_t>(FilterOf(native)));
  const wxMask* const mask = useMask ? bitmap.GetMask() : nullptr;
  if (mask) {
    cairo_mask_surface(native, *mask, 0, 0);
  } else {
    cairo_pattern_set_extend(pattern, CAIRO_EXTEND_PAD);
    cairo_new_path(native);
    cairo_rectangle(native, 0, 0, columns, rows);
    cairo_fill(native);
  }
  cairo_restore(native);
}

}  // namespace graphics
