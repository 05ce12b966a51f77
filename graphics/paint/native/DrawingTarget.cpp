#include "graphics/paint/native/DrawingTarget.h"

#include "graphics/paint/native/BitmapPixels.h"
#include "graphics/paint/native/NativeState.h"

#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace graphics {

namespace {

/// Beyond these the graphics library fails, and a surface that it has failed on stays unusable for good.
constexpr double kSmallestScale = 1.0 / 16384;
constexpr double kLargestScale = 1.0e6;
/// Averaging so many source pixels into one costs more than anyone sees.
constexpr double kSmallestFilteredScale = 1.0 / 256;
/// Beyond this the graphics library takes a multiple of the time to draw the same squares.
constexpr double kLargestFilteredScale = 32;
constexpr std::int64_t kMostEnlargedPixels = std::int64_t{1} << 20;
constexpr double kFarthest = 1.0e6;

class CSavedState {
public:
  explicit CSavedState(cairo_t* native) : native_(native) { cairo_save(native_); }
  CSavedState(const CSavedState&) = delete;
  CSavedState& operator=(const CSavedState&) = delete;
  ~CSavedState() { cairo_restore(native_); }

private:
  cairo_t* native_;
};

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

bool IsNear(double coordinate) {
  return std::abs(coordinate) <= kFarthest;
}

cairo_surface_t* SurfaceOf(const wxBitmap& bitmap, cairo_t* native) {
  bitmap.SetSourceSurface(native, 0, 0);
  cairo_surface_t* surface = nullptr;
  cairo_pattern_get_surface(cairo_get_source(native), &surface);
  return surface;
}

/// A part of a picture in memory as a surface of its own. All of it is the picture itself.
class CSurfacePart {
public:
  CSurfacePart(cairo_surface_t* whole, const wxRect& part) : whole_(cairo_surface_reference(whole)) {
    if (part == wxRect(0, 0, cairo_image_surface_get_width(whole), cairo_image_surface_get_height(whole))) {
      surface_ = cairo_surface_reference(whole);
      return;
    }
    cairo_surface_flush(whole);
    const cairo_format_t format = cairo_image_surface_get_format(whole);
    const int stride = cairo_image_surface_get_stride(whole);
    const std::ptrdiff_t offset =
        std::ptrdiff_t{part.y} * stride + std::ptrdiff_t{part.x} * (format == CAIRO_FORMAT_A8 ? 1 : 4);
    surface_ = cairo_image_surface_create_for_data(cairo_image_surface_get_data(whole) + offset, format, part.width,
                                                   part.height, stride);
  }
  CSurfacePart(const CSurfacePart&) = delete;
  CSurfacePart& operator=(const CSurfacePart&) = delete;
  ~CSurfacePart() {
    cairo_surface_destroy(surface_);
    cairo_surface_destroy(whole_);
  }

  cairo_surface_t* Get() const { return surface_; }

private:
  cairo_surface_t* whole_;
  cairo_surface_t* surface_;
};

struct CScale {
  explicit CScale(cairo_t* native) {
    cairo_matrix_t matrix;
    cairo_get_matrix(native, &matrix);
    const double x = std::hypot(matrix.xx, matrix.yx);
    const double y = std::hypot(matrix.xy, matrix.yy);
    smaller = std::min(x, y);
    larger = std::max(x, y);
    across = x;
    down = y;
  }
  double smaller, larger;
  double across, down;
};

/// How often each pixel is put down before the rest of the scale is filtered.
int RepeatsFor(double scale) {
  return scale > kLargestFilteredScale ? static_cast<int>(scale / (kLargestFilteredScale / 2)) : 1;
}

/// The source with each pixel put down several times. Null if that takes too many pixels.
cairo_surface_t* Enlarged(cairo_surface_t* source, const wxSize& size, int across, int down) {
  const std::int64_t width = std::int64_t{size.x} * across, height = std::int64_t{size.y} * down;
  if (width > kLargestBitmapEdge || height > kLargestBitmapEdge || width * height > kMostEnlargedPixels) return nullptr;
  cairo_surface_t* const result = cairo_surface_create_similar_image(source, cairo_image_surface_get_format(source),
                                                                     size.x * across, size.y * down);
  cairo_t* const native = cairo_create(result);
  cairo_scale(native, across, down);
  cairo_set_source_surface(native, source, 0, 0);
  cairo_pattern_set_filter(cairo_get_source(native), CAIRO_FILTER_NEAREST);
  cairo_set_operator(native, CAIRO_OPERATOR_SOURCE);
  cairo_paint(native);
  cairo_destroy(native);
  return result;
}

/// Sets the source and the filter for a picture that is scaled so. Far enlarged, it is enlarged in two steps.
void SetPictureSource(cairo_t* native, cairo_surface_t* picture, const wxSize& size, cairo_filter_t filter,
                      const CScale& scale) {
  cairo_set_source_surface(native, picture, 0, 0);
  if (filter == CAIRO_FILTER_BEST && scale.larger > kLargestFilteredScale) {
    const int across = RepeatsFor(scale.across), down = RepeatsFor(scale.down);
    if (cairo_surface_t* const enlarged = Enlarged(picture, size, across, down)) {
      cairo_set_source_surface(native, enlarged, 0, 0);
      cairo_surface_destroy(enlarged);
      cairo_matrix_t matrix;
      cairo_matrix_init_scale(&matrix, across, down);
      cairo_pattern_set_matrix(cairo_get_source(native), &matrix);
    } else {
      filter = CAIRO_FILTER_NEAREST;
    }
  }
  cairo_pattern_set_filter(cairo_get_source(native), filter);
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
  const CSavedState saved(native);
  cairo_set_source_rgba(native, colour.Red() / 255.0, colour.Green() / 255.0, colour.Blue() / 255.0,
                        colour.Alpha() / 255.0);
  cairo_new_path(native);
  cairo_rectangle(native, x, y, width, height);
  cairo_fill(native);
}

void DrawBitmapInto(wxGraphicsContext& context, const wxBitmap& bitmap, double x, double y, double width, double height,
                    bool useMask) {
  if (bitmap.IsOk()) DrawBitmapPartInto(context, bitmap, wxRect(bitmap.GetSize()), x, y, width, height, useMask);
}

void DrawBitmapPartInto(wxGraphicsContext& context, const wxBitmap& bitmap, const wxRect& part, double x, double y,
                        double width, double height, bool useMask) {
  if (!bitmap.IsOk() || !IsNear(x) || !IsNear(y) || !IsNear(width) || !IsNear(height)) return;
  const double columns = part.width;
  const double rows = part.height;
  if (std::abs(width) < columns * kSmallestScale || std::abs(height) < rows * kSmallestScale) return;
  cairo_t* const native = NativeOf(context);
  const CSavedState saved(native);
  cairo_translate(native, x, y);
  cairo_scale(native, width / columns, height / rows);
  const CScale scale(native);
  if (!(scale.smaller >= kSmallestScale && scale.larger <= kLargestScale)) return;
  const auto filter =
      scale.smaller < kSmallestFilteredScale ? CAIRO_FILTER_BILINEAR : static_cast<cairo_filter_t>(FilterOf(native));
  const CSurfacePart picture(SurfaceOf(bitmap, native), part);
  SetPictureSource(native, picture.Get(), part.GetSize(), filter, scale);
  const wxMask* const mask = useMask ? bitmap.GetMask() : nullptr;
  if (mask) {
    const CSurfacePart maskPart(*mask, part);
    cairo_pattern_t* const pattern = cairo_pattern_create_for_surface(maskPart.Get());
    cairo_pattern_set_filter(pattern, filter);
    cairo_mask(native, pattern);
    cairo_pattern_destroy(pattern);
  } else {
    cairo_pattern_set_extend(cairo_get_source(native), CAIRO_EXTEND_PAD);
    cairo_new_path(native);
    cairo_rectangle(native, 0, 0, columns, rows);
    cairo_fill(native);
  }
}

}  // namespace graphics
