#include "graphics/paint/native/TextDrawing.h"

#include "graphics/paint/native/RecentCache.h"
#include "graphics/paint/native/TextMatrix.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <optional>

namespace graphics {

namespace {

/// Bytes of text that was drawn before, and of the largest one that is kept. A page's texts fit at every common size.
constexpr std::size_t kMaskBudget = std::size_t{32} << 20;
/// What keeping a text takes besides its pixels: its layout lives as long, and letters may be smaller than a pixel.
constexpr std::size_t kBytesPerText = 1024;
constexpr std::size_t kBytesPerLetter = 40;
constexpr double kLargestMask = 1 << 20;
constexpr double kPhases = 4;

/// A text as it covers pixels, from the pixel of the first baseline's start on.
struct CTextMask {
  std::shared_ptr<cairo_surface_t> surface;
  int left = 0;
  int top = 0;
};

struct CMaskKey {
  std::shared_ptr<const CTextLayout> layout;
  double xx, yx, xy, yy, x, y;

  bool operator==(const CMaskKey&) const = default;
};

struct CMaskHash {
  std::size_t operator()(const CMaskKey& key) const {
    std::size_t hash = std::hash<const CTextLayout*>()(key.layout.get());
    for (const double value : {key.xx, key.yx, key.xy, key.yy, key.x, key.y})
      hash = hash * 31 + std::hash<double>()(value);
    return hash;
  }
};

using CMaskCache = TRecentCache<CMaskKey, CTextMask, CMaskHash>;

CMaskCache& Masks() {
  static auto* const masks = new CMaskCache(kMaskBudget);
  return *masks;
}

/// The pixels that ink of the layout covers under a matrix, with one to spare on every side.
struct CDeviceBox {
  CDeviceBox(const CTextLayout::CInkBox& ink, const cairo_matrix_t& matrix) {
    for (const double corner : {ink.left, ink.right}) {
      for (const double edge : {ink.top, ink.bottom}) {
        double x = corner;
        double y = edge;
        cairo_matrix_transform_point(&matrix, &x, &y);
        left = std::min(left, std::floor(x) - 1);
        top = std::min(top, std::floor(y) - 1);
        right = std::max(right, std::ceil(x) + 1);
        bottom = std::max(bottom, std::ceil(y) + 1);
      }
    }
  }

  double GetArea() const { return (right - left) * (bottom - top); }

  double left = std::numeric_limits<double>::max();
  double top = left;
  double right = std::numeric_limits<double>::lowest();
  double bottom = right;
};

bool IsSeen(cairo_t* native, const CDeviceBox& box) {
  double left = 0, top = 0, right = 0, bottom = 0;
  cairo_clip_extents(native, &left, &top, &right, &bottom);
  return box.left < right && left < box.right && box.top < bottom && top < box.bottom;
}

CTextMask MakeMask(const CTextLayout& layout, const CDeviceBox& box, cairo_matrix_t matrix) {
  CTextMask mask;
  mask.left = static_cast<int>(box.left);
  mask.top = static_cast<int>(box.top);
  mask.surface.reset(cairo_image_surface_create(CAIRO_FORMAT_A8, static_cast<int>(box.right - box.left),
                                                static_cast<int>(box.bottom - box.top)),
                     cairo_surface_destroy);
  cairo_t* const native = cairo_create(mask.surface.get());
  matrix.x0 -= box.left;
  matrix.y0 -= box.top;
  cairo_set_matrix(native, &matrix);
  layout.Fill(native);
  cairo_destroy(native);
  return mask;
}

std::size_t BytesOf(const CTextMask& mask) {
  return static_cast<std::size_t>(cairo_image_surface_get_stride(mask.surface.get())) *
         static_cast<std::size_t>(cairo_image_surface_get_height(mask.surface.get()));
}

/// Halves, and what is a half but for the last digits, go up on both sides of zero: a text looks alike wherever on a
/// surface it lies.
double ToWhole(double place) {
  constexpr double kLastDigits = 1e-6;
  return std::floor(place + 0.5 + kLastDigits);
}

double ToPhase(double place) {
  return ToWhole(place * kPhases) / kPhases;
}

/// The font library applies a scale twice on its way to a letter and fails above 65535 pixels. A surface that drawing
/// has failed on stays unusable for good, and so does the font.
constexpr double kLargestLetter = 60000;

}  // namespace

bool CanDrawLetters(const wxGraphicsContext& context, const wxFont& font) {
  constexpr double kPixelsPerPoint = 96.0 / 72;
  if (!font.IsOk()) return false;
  double a = 0, b = 0, c = 0, d = 0;
  context.GetTransform().Get(&a, &b, &c, &d);
  const double larger = std::max(std::hypot(a, b), std::hypot(c, d));
  const double smaller = std::abs(a * d - b * c) / larger;
  const double letter = font.GetFractionalPointSize() * kPixelsPerPoint * larger;
  return letter * std::max({1.0, larger, 1 / smaller}) <= kLargestLetter;
}

void DrawTextLayout(wxGraphicsContext& context, const std::shared_ptr<const CTextLayout>& layout,
                    const wxColour& colour) {
  auto* const native = static_cast<cairo_t*>(context.GetNativeContext());
  cairo_save(native);
  cairo_translate(native, 0, layout->GetExtent().ascent);
  cairo_matrix_t matrix;
  cairo_get_matrix(native, &matrix);
  matrix.x0 = IsTurned(matrix) ? ToWhole(matrix.x0) : ToPhase(matrix.x0);
  matrix.y0 = IsUpright(matrix) ? ToWhole(matrix.y0) : ToPhase(matrix.y0);
  const double pixelX = std::floor(matrix.x0);
  const double pixelY = std::floor(matrix.y0);

  cairo_identity_matrix(native);
  const CDeviceBox place(layout->GetInk(), matrix);
  if (IsSeen(native, place)) {
    cairo_set_source_rgba(native, colour.Red() / 255.0, colour.Green() / 255.0, colour.Blue() / 255.0,
                          colour.Alpha() / 255.0);
    if (layout->HasColours()) {
      cairo_set_matrix(native, &matrix);
      layout->Show(native);
    } else if (place.GetArea() > kLargestMask) {
      cairo_set_matrix(native, &matrix);
      layout->Fill(native);
    } else {
      matrix.x0 -= pixelX;
      matrix.y0 -= pixelY;
      const CMaskKey key{layout, matrix.xx, matrix.yx, matrix.xy, matrix.yy, matrix.x0, matrix.y0};
      const CTextMask* known = Masks().Find(key);
      CTextMask made;
      if (!known) {
        made = MakeMask(*layout, CDeviceBox(layout->GetInk(), matrix), matrix);
        Masks().Put(key, made, BytesOf(made) + kBytesPerText + kBytesPerLetter * layout->CountLetters());
        known = &made;
      }
      cairo_mask_surface(native, known->surface.get(), pixelX + known->left, pixelY + known->top);
    }
  }
  cairo_restore(native);
}

}  // namespace graphics
