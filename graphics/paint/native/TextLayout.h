#pragma once

#include <wx/colour.h>
#include <wx/dynarray.h>
#include <wx/font.h>
#include <wx/graphics.h>

#include <cstddef>
#include <memory>
#include <pango/pangocairo.h>
#include <vector>

namespace graphics {

/// How wide a text is, and how far it reaches above and below its first baseline.
struct CTextExtent {
  int width = 0;
  int ascent = 0;
  int descent = 0;

  int GetHeight() const { return ascent + descent; }
};

/// Text in one font whose letters stand at the same places at every scale: nothing is fitted to the pixels of the
/// device, so that what is measured once holds however large the text is drawn. Immutable. The toolkit's lock is held
/// by who uses one.
class CTextLayout {
public:
  /// Short texts are kept for the next one who asks for them.
  static std::shared_ptr<const CTextLayout> Of(const wxFont& font, const wxString& text);

  CTextLayout(const wxFont& font, const wxString& text);

  CTextExtent GetExtent() const { return extent_; }
  /// The width from the start of the text to the end of each of its characters. Characters that are drawn as one all
  /// end where the last of them does.
  wxArrayInt GetPartialExtents() const;
  std::size_t CountLetters() const { return characters_; }
  /// The letters that no font has.
  int CountUnknownLetters() const { return pango_layout_get_unknown_glyphs_count(layout_.get()); }
  /// True if letters have colours of their own.
  bool HasColours() const { return coloured_; }

  /// What is drawn, in units from the start of the first baseline.
  struct CInkBox {
    double left, top, right, bottom;
  };
  CInkBox GetInk() const;
  /// Fills the letters and the lines below or through them, from the start of the first baseline on.
  void Fill(cairo_t* native) const;
  /// The same with the letters' own colours.
  void Show(cairo_t* native) const;

private:
  bool FindColours() const;
  std::vector<int> MeasureCharacters() const;
  void AddWidths(PangoLayoutRun* run, const std::vector<std::size_t>& characterAt, std::vector<int>& widths) const;
  void FillLines(cairo_t* native, double y) const;

  std::unique_ptr<PangoLayout, void (*)(gpointer)> layout_;
  std::size_t characters_;
  bool underlined_;
  bool struckThrough_;
  bool coloured_ = false;
  int baseline_ = 0;
  CTextExtent extent_;
};

}  // namespace graphics
