#include "graphics/paint/native/TextLayout.h"

#include "graphics/paint/PixelRange.h"
#include "graphics/paint/native/RecentCache.h"
#include "graphics/paint/native/TextMatrix.h"

#include <wx/fontutil.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <hb-ot.h>
#include <numeric>

namespace graphics {

namespace {

/// A page's texts fit, line by line.
constexpr std::size_t kLayoutsKept = 2000;
constexpr std::size_t kLongestKept = 500;

/// A context of our own, at a resolution of 96 and without a transform: the toolkit's follows the grid of the surface
/// that is drawn on, and its fonts belong to a thread.
PangoContext* MakeContext() {
  PangoFontMap* const fonts = pango_cairo_font_map_new();
  pango_cairo_font_map_set_resolution(PANGO_CAIRO_FONT_MAP(fonts), 96);
  PangoContext* const context = pango_font_map_create_context(fonts);
  g_object_unref(fonts);
  cairo_font_options_t* const options = cairo_font_options_create();
  cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
  cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
  cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
  pango_cairo_context_set_font_options(context, options);
  cairo_font_options_destroy(options);
  pango_context_set_round_glyph_positions(context, FALSE);
  return context;
}

PangoContext* SharedContext() {
  static PangoContext* const context = MakeContext();
  return context;
}

const PangoFontDescription* DescriptionOf(const wxFont& font) {
  return font.GetNativeFontInfo()->description;
}

int RoundUnits(std::int64_t units) {
  return ToNearPixel((units + PANGO_SCALE / 2) / PANGO_SCALE);
}

double ToUnits(int units) {
  return static_cast<double>(units) / PANGO_SCALE;
}

/// Calls a function with an iterator that stands at each run of the layout, and on each line's end.
template <class Function>
void ForEachRun(PangoLayout* layout, Function function) {
  PangoLayoutIter* const at = pango_layout_get_iter(layout);
  do {
    function(at);
  } while (pango_layout_iter_next_run(at));
  pango_layout_iter_free(at);
}

/// A line of whole pixels in thickness where it lies along them.
void FillLine(cairo_t* native, double width, double top, double thickness) {
  cairo_matrix_t matrix;
  cairo_get_matrix(native, &matrix);
  cairo_new_path(native);
  if (IsUpright(matrix)) {
    const double scale = std::abs(matrix.yy);
    const double y = std::round(matrix.y0 + top * matrix.yy);
    cairo_save(native);
    cairo_identity_matrix(native);
    cairo_rectangle(native, matrix.x0, y, width * matrix.xx,
                    std::copysign(std::max(std::round(thickness * scale), 1.0), matrix.yy));
    cairo_restore(native);
  } else {
    cairo_rectangle(native, 0, top, width, thickness);
  }
  cairo_fill(native);
}

struct CTextKey {
  CTextKey(const wxFont& font, const wxString& letters)
      : description(pango_font_description_copy(DescriptionOf(font)), pango_font_description_free),
        underlined(font.GetUnderlined()),
        struckThrough(font.GetStrikethrough()),
        text(letters.ToStdWstring()) {}

  bool operator==(const CTextKey& other) const {
    return text == other.text && underlined == other.underlined && struckThrough == other.struckThrough &&
           pango_font_description_equal(description.get(), other.description.get());
  }

  std::shared_ptr<PangoFontDescription> description;
  bool underlined;
  bool struckThrough;
  std::wstring text;
};

struct CTextHash {
  std::size_t operator()(const CTextKey& key) const {
    return std::hash<std::wstring>()(key.text) ^ pango_font_description_hash(key.description.get());
  }
};

using CLayoutCache = TRecentCache<CTextKey, std::shared_ptr<const CTextLayout>, CTextHash>;

CLayoutCache& Layouts() {
  static auto* const layouts = new CLayoutCache(kLayoutsKept);
  return *layouts;
}

}  // namespace

std::shared_ptr<const CTextLayout> CTextLayout::Of(const wxFont& font, const wxString& text) {
  if (text.length() > kLongestKept) return std::make_shared<CTextLayout>(font, text);
  CTextKey key(font, text);
  if (const auto* const known = Layouts().Find(key)) return *known;
  auto layout = std::make_shared<CTextLayout>(font, text);
  Layouts().Put(std::move(key), layout, 1);
  return layout;
}

CTextLayout::CTextLayout(const wxFont& font, const wxString& text)
    : layout_(pango_layout_new(SharedContext()), g_object_unref),
      characters_(text.length()),
      underlined_(font.GetUnderlined()),
      struckThrough_(font.GetStrikethrough()) {
  pango_layout_set_font_description(layout_.get(), DescriptionOf(font));
  const wxScopedCharBuffer bytes = text.utf8_str();
  pango_layout_set_text(layout_.get(), bytes.data(), static_cast<int>(bytes.length()));
  PangoRectangle logical;
  pango_layout_get_extents(layout_.get(), nullptr, &logical);
  baseline_ = pango_layout_get_baseline(layout_.get());
  extent_.width = RoundUnits(logical.width);
  extent_.ascent = PANGO_PIXELS_CEIL(baseline_);
  extent_.descent = PANGO_PIXELS_CEIL(logical.height - baseline_);
  coloured_ = FindColours();
  // Long lines are longer than Pango can count.
  if (characters_ > kLongestKept && pango_layout_get_line_count(layout_.get()) == 1) {
    const std::vector<int> widths = MeasureCharacters();
    extent_.width = RoundUnits(std::accumulate(widths.begin(), widths.end(), std::int64_t{0}));
  }
}

wxArrayInt CTextLayout::GetPartialExtents() const {
  wxArrayInt extents;
  extents.reserve(characters_);
  std::int64_t end = 0;
  for (const int width : MeasureCharacters()) {
    end += width;
    extents.push_back(RoundUnits(end));
  }
  return extents;
}

/// The whole width of letters that are drawn as one goes to the first of them.
std::vector<int> CTextLayout::MeasureCharacters() const {
  std::vector<std::size_t> characterAt;
  std::size_t count = 0;
  for (const char* at = pango_layout_get_text(layout_.get()); *at; ++at) {
    const bool startsCharacter = (static_cast<unsigned char>(*at) & 0xC0) != 0x80;
    count += startsCharacter;
    characterAt.push_back(count - 1);
  }
  std::vector<int> widths(characters_, 0);
  ForEachRun(layout_.get(), [&](PangoLayoutIter* at) {
    if (PangoLayoutRun* const run = pango_layout_iter_get_run_readonly(at)) AddWidths(run, characterAt, widths);
  });
  return widths;
}

void CTextLayout::AddWidths(PangoLayoutRun* run, const std::vector<std::size_t>& characterAt,
                            std::vector<int>& widths) const {
  const char* const text = pango_layout_get_text(layout_.get());
  PangoGlyphItemIter cluster;
  for (gboolean more = pango_glyph_item_iter_init_start(&cluster, run, text); more;
       more = pango_glyph_item_iter_next_cluster(&cluster)) {
    const std::size_t character = characterAt.at(static_cast<std::size_t>(cluster.start_index));
    // Glyphs of text from right to left count down.
    const int from = std::min(cluster.start_glyph, cluster.end_glyph + 1);
    const int to = std::max(cluster.start_glyph + 1, cluster.end_glyph);
    for (int glyph = from; glyph < to && character < widths.size(); ++glyph)
      widths[character] += run->glyphs->glyphs[glyph].geometry.width;
  }
}

bool CTextLayout::FindColours() const {
  bool coloured = false;
  ForEachRun(layout_.get(), [&](PangoLayoutIter* at) {
    const PangoLayoutRun* const run = pango_layout_iter_get_run_readonly(at);
    if (!run) return;
    hb_face_t* const face = hb_font_get_face(pango_font_get_hb_font(run->item->analysis.font));
    coloured = coloured || hb_ot_color_has_png(face) || hb_ot_color_has_layers(face);
  });
  return coloured;
}

CTextLayout::CInkBox CTextLayout::GetInk() const {
  PangoRectangle ink;
  pango_layout_get_extents(layout_.get(), &ink, nullptr);
  CInkBox box{ToUnits(ink.x), ToUnits(ink.y - baseline_), ToUnits(ink.x + ink.width),
              ToUnits(ink.y + ink.height - baseline_)};
  if (underlined_ || struckThrough_) {
    box.left = std::min(box.left, 0.0);
    box.right = std::max<double>(box.right, extent_.width);
    box.top = std::min<double>(box.top, -extent_.ascent);
    box.bottom = std::max<double>(box.bottom, extent_.descent);
  }
  return box;
}

void CTextLayout::Fill(cairo_t* native) const {
  int line = -1;
  ForEachRun(layout_.get(), [&](PangoLayoutIter* at) {
    const int baseline = pango_layout_iter_get_baseline(at);
    PangoRectangle place;
    pango_layout_iter_get_run_extents(at, nullptr, &place);
    if (PangoLayoutRun* const run = pango_layout_iter_get_run_readonly(at)) {
      cairo_new_path(native);
      cairo_move_to(native, ToUnits(place.x), ToUnits(baseline - baseline_));
      pango_cairo_glyph_string_path(native, run->item->analysis.font, run->glyphs);
      cairo_fill(native);
    }
    if (baseline != line) FillLines(native, ToUnits(baseline - baseline_));
    line = baseline;
  });
}

void CTextLayout::FillLines(cairo_t* native, double y) const {
  if (!underlined_ && !struckThrough_) return;
  PangoContext* const context = pango_layout_get_context(layout_.get());
  PangoFontMetrics* const metrics =
      pango_context_get_metrics(context, pango_layout_get_font_description(layout_.get()), nullptr);
  if (underlined_)
    FillLine(native, extent_.width, y - ToUnits(pango_font_metrics_get_underline_position(metrics)),
             ToUnits(pango_font_metrics_get_underline_thickness(metrics)));
  if (struckThrough_)
    FillLine(native, extent_.width, y - ToUnits(pango_font_metrics_get_strikethrough_position(metrics)),
             ToUnits(pango_font_metrics_get_strikethrough_thickness(metrics)));
  pango_font_metrics_unref(metrics);
}

void CTextLayout::Show(cairo_t* native) const {
  cairo_move_to(native, 0, -ToUnits(baseline_));
  pango_cairo_show_layout(native, layout_.get());
  FillLines(native, 0);
}

}  // namespace graphics
