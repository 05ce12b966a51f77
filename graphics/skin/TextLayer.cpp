#include "graphics/skin/TextLayer.h"

#include "graphics/geometry/Truncate.h"
#include "graphics/geometry/XmlGeometry.h"
#include "graphics/geometry/XmlStyles.h"
#include "graphics/geometry/XmlValues.h"
#include "graphics/paint/EffectGraphicsContext.h"
#include "graphics/skin/LayerText.h"
#include "graphics/skin/TextSource.h"

#include <cmath>

namespace graphics::skin {

namespace {

wxColour DrawColour(const TEffectGraphicsContext& target, const wxColour& colour) {
  const wxColour& ink = colour.IsOk() ? colour : *wxBLACK;
  if (target.alphaMask) return {ink.Alpha(), ink.Alpha(), ink.Alpha(), 255};
  return {ink.Red(), ink.Green(), ink.Blue(), 255};
}

}  // namespace

void CTextLayer::Paint(CPaintContext& /*context*/, TEffectGraphicsContext& target, const CDoubleRect& rect,
                       ITextSource* texts, IAnimationSource* /*animations*/, ICustomLayerPainter* /*painter*/) {
  if (!texts) return;
  const CDoubleRect box = CalcContentRect(rect);
  const CLayerText text = TextOf(*texts, TruncateToInt(box.width));
  const wxPoint place = AlignIn(box, {static_cast<double>(text.GetSize().x), static_cast<double>(text.GetSize().y)});

  target.PushState();
  target.Clip(box.left, box.top, box.width, box.height);
  if (haloEnabled) {
    const wxColour halo = DrawColour(target, haloColor);
    for (int i = -1; i <= 1; ++i)
      for (int j = -1; j <= 1; ++j)
        if (i != 0 || j != 0) text.Draw(target, halo, place.x + i, place.y + j);
  }
  if (shadowRelPosition.x > 0 || shadowRelPosition.y > 0)
    text.Draw(target, DrawColour(target, shadowColor), place.x + shadowRelPosition.x, place.y + shadowRelPosition.y);
  text.Draw(target, DrawColour(target, color), place.x, place.y);
  target.PopState();
}

CLayerText CTextLayer::TextOf(ITextSource& texts, int width) const {
  const wxString content = texts.GetText(prop);
  return multilineEnabled ? CLayerText(font, content, width) : CLayerText(font, content);
}

CDoubleSize CTextLayer::WithMargins(wxSize text) const {
  return {std::floor(contentMargins.left + contentMargins.right + text.x + 0.5),
          std::floor(contentMargins.top + contentMargins.bottom + text.y + 0.5)};
}

CDoubleSize CTextLayer::GetPreferredSize(TEffectGraphicsContext& /*context*/, ITextSource* texts,
                                         IAnimationSource* /*animations*/) const {
  return WithMargins(texts ? CLayerText(font, texts->GetText("")).GetSize() : wxSize());
}

CDoubleSize CTextLayer::GetPreferredSizeForWidth(TEffectGraphicsContext& /*context*/, ITextSource* texts,
                                                 IAnimationSource* /*animations*/, std::int32_t width) const {
  if (!texts) return WithMargins({});
  return WithMargins(TextOf(*texts, width).GetSize());
}

void CTextLayer::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  CLayer::WriteToXml(node, store);
  xml::WriteFont(node, "font", font);
  xml::WriteColour(node, "color", color);
  xml::WriteColour(node, "shadow-color", shadowColor);
  xml::WritePoint(node, "shadow-rel-position", shadowRelPosition);
  xml::WriteBool(node, "halo-enabled", haloEnabled);
  xml::WriteBool(node, "multiline-enabled", multilineEnabled);
  xml::WriteColour(node, "halo-color", haloColor);
  xml::WriteText(node, "prop", prop);
}

void CTextLayer::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  CLayer::ReadFromXml(node, store);
  xml::ReadFont(node, "font", font);
  xml::ReadColour(node, "color", color);
  xml::ReadColour(node, "shadow-color", shadowColor);
  xml::ReadPoint(node, "shadow-rel-position", shadowRelPosition);
  xml::ReadBool(node, "halo-enabled", haloEnabled);
  xml::ReadBool(node, "multiline-enabled", multilineEnabled);
  xml::ReadColour(node, "halo-color", haloColor);
  xml::ReadText(node, "prop", prop);
}

}  // namespace graphics::skin
