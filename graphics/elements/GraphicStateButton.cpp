#include "graphics/elements/GraphicStateButton.h"

#include "graphics/elements/CloneOf.h"
#include "graphics/elements/ElementBox.h"
#include "graphics/geometry/XmlValues.h"
#include "graphics/paint/PixelRange.h"

#include <wx/brush.h>
#include <wx/font.h>
#include <wx/pen.h>

namespace graphics {

namespace {

constexpr unsigned kFirstStateBit = 2;
constexpr unsigned kSecondStateBit = 8;

struct CButtonColours {
  wxColour face;
  wxColour ink;
};

CButtonColours ColoursOf(const CGraphicStateButton& button, const CPaintContext& context) {
  const bool first = button.HasFlag(kFirstStateBit);
  const bool second = button.HasFlag(kSecondStateBit);
  if (context.ShowsFrames() || (!first && !second)) return {{200, 200, 200}, *wxBLACK};
  if (second) return {first ? wxColour(0, 0, 255) : wxColour(0, 255, 0), *wxWHITE};
  return {{255, 0, 0}, *wxWHITE};
}

}  // namespace

void CGraphicStateButton::Paint(CPaintContext& context) {
  wxDC& dc = *context.dc;
  const CDoubleRect box = BoxOf(*this, context);
  const CButtonColours colours = ColoursOf(*this, context);
  dc.SetBrush(wxBrush(colours.face, wxBRUSHSTYLE_SOLID));
  dc.SetPen(wxPen(colours.ink, 1, wxPENSTYLE_SOLID));
  dc.DrawRoundedRectangle(ToPixelRect(box), 5.0);
  if (label_.empty()) return;
  dc.SetTextForeground(colours.ink);
  dc.SetFont(wxFontInfo(8).Family(wxFONTFAMILY_DEFAULT).Bold().FaceName("Arial"));
  const wxSize text = dc.GetTextExtent(label_);
  dc.DrawText(label_, TruncateToPixel(box.left + (box.width - text.x) * 0.5),
              TruncateToPixel(box.top + (box.height - text.y) * 0.5));
}

void CGraphicStateButton::Assign(const CGraphicBase& other) {
  CGraphicElement::Assign(other);
  const auto* const button = dynamic_cast<const CGraphicStateButton*>(&other);
  if (!button) return;
  label_ = button->label_;
  hint_ = button->hint_;
}

orlo::P<CGraphicElement> CGraphicStateButton::Clone() const {
  return CloneOf(*this);
}

void CGraphicStateButton::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  CGraphicElement::WriteToXml(node, store);
  xml::WriteText(node, "label", label_);
  xml::WriteText(node, "hint", hint_);
}

void CGraphicStateButton::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  CGraphicElement::ReadFromXml(node, store);
  xml::ReadText(node, "label", label_);
  xml::ReadText(node, "hint", hint_);
}

}  // namespace graphics
