#include "graphics/skin/LayerText.h"

#include "graphics/art/TextWrapper.h"
#include "graphics/paint/EffectGraphicsContext.h"

#include <wx/tokenzr.h>

#include <algorithm>

namespace graphics::skin {

CLayerText::CLayerText(const wxFont& font, const wxString& text) : font_(font) {
  wxString line = text.Left(kLongestLayerText);
  line.Replace("\n", " ");
  if (!line.empty()) Append(line);
}

CLayerText::CLayerText(const wxFont& font, const wxString& text, int width) : font_(font) {
  if (!font.IsOk()) return;
  wxStringTokenizer lines(CTextWrapper(font, true).Wrap(text.Left(kLongestLayerText), width), "\n");
  while (lines.HasMoreTokens()) Append(lines.GetNextToken());
}

void CLayerText::Append(const wxString& line) {
  const wxSize extent = TEffectGraphicsContext::MeasureLine(line, font_);
  size_ = {std::max(size_.x, extent.x), size_.y + extent.y};
  lines_.push_back(line);
}

void CLayerText::Draw(TEffectGraphicsContext& target, const wxColour& colour, double x, double y) const {
  for (const wxString& line : lines_) {
    target.DrawLine(line, font_, colour, x, y);
    y += TEffectGraphicsContext::MeasureLine(line, font_).y;
  }
}

}  // namespace graphics::skin
