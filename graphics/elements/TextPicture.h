#pragma once

#include "graphics/elements/ScaledCopy.h"
#include "graphics/paint/EffectDC.h"

#include <wx/graphics.h>

#include <array>
#include <memory>

class wxRichTextBuffer;

namespace graphics {

/// Draws a laid out text and keeps what it looks like for as long as it comes to lie on the same pixels.
class CTextPicture {
public:
  /// The text is clipped to its rectangle, which the matrix leads to the device.
  void Draw(CSmoothEffectDC& dc, wxRichTextBuffer& text, const wxRect& rect, const wxGraphicsMatrix& place);
  /// To be called when the text has changed.
  void Forget() { bitmap_.reset(); }

private:
  struct CKey {
    std::array<double, 6> place{};
    wxSize surface;
    bool greyscale = false;

    bool operator==(const CKey&) const = default;
  };

  void Make(const CSmoothEffectDC& dc, wxRichTextBuffer& text, const wxRect& rect, const wxGraphicsMatrix& place);

  CKey key_;
  wxRect pixels_;
  std::unique_ptr<CScaledCopy> bitmap_;
};

}  // namespace graphics
