#pragma once

#include <wx/colour.h>
#include <wx/font.h>
#include <wx/gdicmn.h>
#include <wx/string.h>

#include <cstddef>
#include <vector>

namespace graphics {
class TEffectGraphicsContext;
}

namespace graphics::skin {

/// Characters of a layer's text that are shown.
constexpr std::size_t kLongestLayerText = 10'000;

/// The text of a layer in lines, drawn as large as it is measured, at every scale.
class CLayerText {
public:
  /// On one line; line feeds become spaces.
  CLayerText(const wxFont& font, const wxString& text);
  /// In lines of a width in pixels. Empty lines take no room.
  CLayerText(const wxFont& font, const wxString& text, int width);

  wxSize GetSize() const { return size_; }
  void Draw(TEffectGraphicsContext& target, const wxColour& colour, double x, double y) const;

private:
  void Append(const wxString& line);

  wxFont font_;
  std::vector<wxString> lines_;
  wxSize size_;
};

}  // namespace graphics::skin
