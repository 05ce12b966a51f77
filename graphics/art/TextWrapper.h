#pragma once

#include "foundation/Object.h"
#include "graphics/paint/EffectDC.h"

#include <wx/bitmap.h>
#include <wx/font.h>
#include <wx/string.h>

namespace graphics {

/// Breaks plain text into lines of a width. Call it with the toolkit's lock held.
class CTextWrapper : public orlo::CObject {
public:
  /// Scalable text is measured as TEffectGraphicsContext measures it.
  explicit CTextWrapper(const wxFont& font, bool scalable = false);

  /// Line feeds are put in before what would reach beyond maxWidth pixels, those of the text stay. Text breaks after
  /// spaces and punctuation. A word that is wider on its own gets a line of its own and is left whole.
  wxString Wrap(const wxString& text, int maxWidth);

private:
  wxBitmap bitmap_;
  CBitmapEffectDC dc_;
};

/// The size of text in pixels as if it had no line feeds.
wxSize MeasureLine(wxDC& dc, const wxString& text);
/// The widest line and the sum of the lines' heights. Empty lines don't count.
wxSize MeasureMultiLine(wxDC& dc, const wxString& text);

}  // namespace graphics
