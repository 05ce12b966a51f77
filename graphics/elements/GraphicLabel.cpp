#include "graphics/elements/GraphicLabel.h"

#include "graphics/elements/CloneOf.h"
#include "graphics/elements/ElementBox.h"
#include "graphics/geometry/XmlStyles.h"
#include "graphics/geometry/XmlValues.h"
#include "graphics/paint/PixelRange.h"

#include <algorithm>
#include <cstddef>

namespace graphics {

namespace {

/// Letters of a line that are laid out; no picture shows as many.
constexpr std::size_t kLongestLine = 10'000;

}  // namespace

void CGraphicLabel::Paint(CPaintContext& context) {
  wxDC& dc = *context.dc;
  const CDoubleRect box = BoxOf(*this, context);
  dc.SetFont(font_.IsOk() ? font_ : *wxNORMAL_FONT);
  dc.SetTextForeground(colour_);
  const int x = TruncateToPixel(box.left);
  const int bottom = dc.GetSize().y;
  int y = TruncateToPixel(box.top);
  for (std::size_t begin = 0; begin < label_.length() && y < bottom;) {
    const std::size_t end = std::min(label_.find('\n', begin), label_.length());
    const wxString line = label_.Mid(begin, std::min(end - begin, kLongestLine));
    dc.DrawText(line, x, y);
    y += dc.GetTextExtent(line.empty() ? wxString(" ") : line).y;
    begin = end + 1;
  }
}

void CGraphicLabel::Assign(const CGraphicBase& other) {
  CGraphicElement::Assign(other);
  const auto* const label = dynamic_cast<const CGraphicLabel*>(&other);
  if (!label) return;
  label_ = label->label_;
  font_ = label->font_;
  colour_ = label->colour_;
}

orlo::P<CGraphicElement> CGraphicLabel::Clone() const {
  return CloneOf(*this);
}

void CGraphicLabel::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  CGraphicElement::WriteToXml(node, store);
  xml::WriteText(node, "text", label_);
  xml::WriteFont(node, "font", font_);
  xml::WriteColour(node, "color", colour_);
}

void CGraphicLabel::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  CGraphicElement::ReadFromXml(node, store);
  xml::ReadText(node, "text", label_);
  xml::ReadFont(node, "font", font_);
  xml::ReadColour(node, "color", colour_);
}

}  // namespace graphics
