#pragma once

#include "graphics/paint/EffectDC.h"

#include <wx/bitmap.h>
#include <wx/font.h>
#include <wx/string.h>

#include <optional>

namespace graphics {

/// The lines and the font that a hint is drawn with, found step by step. Starts with one line in the given font.
class CHintLayout {
public:
  CHintLayout(const wxString& text, const wxFont& font);

  const wxFont& Font() const { return font_; }
  bool IsWiderThan(int maxWidth) const;
  bool CanShrink() const;
  /// By one point. From then on the text is measured line by line.
  void Shrink();
  void Wrap(int maxWidth);

  /// The text with a halo of one pixel, on a transparent ground. Nothing if the picture would be larger than
  /// kLargestBitmapEdge or have more pixels than maxPixels.
  std::optional<wxBitmap> Draw(const wxColour& textColour, const wxColour& haloColour, double maxPixels) const;

private:
  wxString text_;
  wxFont font_;
  wxBitmap scratch_;
  CBitmapEffectDC dc_;
  wxSize size_;
};

}  // namespace graphics
