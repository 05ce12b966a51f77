#include "graphics/paint/native/TextLayout.h"

#include <wx/fontutil.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <pango/pangocairo.h>
#include <vector>

namespace graphics {

namespace {

template <class Object>
using TShared = std::unique_ptr<Object, void (*)(gpointer)>;

/// A context of our own, at a resolution of 96 and without a transform: the toolkit's follows the grid of the surface
/// that is drawn on. Its fonts are nobody else's, whatever thread asks.
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

int RoundUnits(int units) {
  return PANGO_PIXELS(units);
}

class CPangoLayout : public CTextLayout {
public:
  CPangoLayout(const wxFont& font, const wxString& text)
      : layout_(pango_layout_new(SharedContext()), g_object_unref), characters_(text.length()) {
    pango_layout_set_font_description(layout_.get(), font.GetNativeFontInfo()->description);
    const wxScopedCharBuffer bytes = text.utf8_str();
    pango_layout_set_text(layout_.get(), bytes.data(), static_cast<int>(bytes.length()));
    if (font.GetUnderlined() || font.GetStrikethrough()) DrawLines(font);

    PangoRectangle logical;
    pango_layout_get_extents(layout_.get(), nullptr, &logical);
    baseline_ = pango_layout_get_baseline(layout_.get());
    extent_.width = RoundUnits(logical.width);
    extent_.ascent = PANGO_PIXELS_CEIL(baseline_);
    extent_.descent = PANGO_PIXELS_CEIL(logical.height - baseline_);
  }

  CTextExtent GetExtent() const override { return extent_; }

  wxArrayInt GetPartialExtents() const override {
    std::vector<int> widths(characters_, 0);
    const std::vector<std::size_t> characterAt = CountCharacters();
    PangoLayoutIter* const at = pango_layout_get_iter(layout_.get());
    do {
      AddWidths(pango_layout_iter_get_run_readonly(at), characterAt, widths);
    } while (pango_layout_iter_next_run(at));
    pango_layout_iter_free(at);

    wxArrayInt extents;
    extents.reserve(widths.size());
    int end = 0;
    for (const int width : widths) {
      end += width;
      extents.push_back(RoundUnits(end));
    }
    return extents;
  }

  int CountUnknownLetters() const override { return pango_layout_get_unknown_glyphs_count(layout_.get()); }

  void Draw(wxGraphicsContext& context, double x, double y, const wxColour& colour) const override {
    auto* const native = static_cast<cairo_t*>(context.GetNativeContext());
    cairo_save(native);
    cairo_set_source_rgba(native, colour.Red() / 255.0, colour.Green() / 255.0, colour.Blue() / 255.0,
                          colour.Alpha() / 255.0);
    // Baselines of neighbours meet on whole units, as the extents say.
    cairo_move_to(native, x, y + extent_.ascent - static_cast<double>(baseline_) / PANGO_SCALE);
    pango_cairo_show_layout(native, layout_.get());
    cairo_restore(native);
  }

private:
  void DrawLines(const wxFont& font) {
    PangoAttrList* const lines = pango_attr_list_new();
    if (font.GetUnderlined()) pango_attr_list_insert(lines, pango_attr_underline_new(PANGO_UNDERLINE_SINGLE));
    if (font.GetStrikethrough()) pango_attr_list_insert(lines, pango_attr_strikethrough_new(TRUE));
    pango_layout_set_attributes(layout_.get(), lines);
    pango_attr_list_unref(lines);
  }

  /// For each byte of the text, how many characters start before it.
  std::vector<std::size_t> CountCharacters() const {
    std::vector<std::size_t> counts;
    std::size_t count = 0;
    for (const char* at = pango_layout_get_text(layout_.get()); *at; ++at) {
      const bool startsCharacter = (static_cast<unsigned char>(*at) & 0xC0) != 0x80;
      counts.push_back(count);
      count += startsCharacter;
    }
    return counts;
  }

  /// What a run adds to the widths, the whole of a cluster to its first character.
  void AddWidths(PangoLayoutRun* run, const std::vector<std::size_t>& characterAt, std::vector<int>& widths) const {
    if (!run) return;
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

  TShared<PangoLayout> layout_;
  std::size_t characters_;
  int baseline_ = 0;
  CTextExtent extent_;
};

}  // namespace

std::shared_ptr<const CTextLayout> CTextLayout::Of(const wxFont& font, const wxString& text) {
  return std::make_shared<CPangoLayout>(font, text);
}

}  // namespace graphics
