#include "graphics/skin/Layer.h"

#include "graphics/geometry/XmlGeometry.h"
#include "graphics/geometry/XmlValues.h"
#include "graphics/paint/PixelRange.h"
#include "graphics/skin/AnimationLayer.h"
#include "graphics/skin/CustomLayer.h"
#include "graphics/skin/TextLayer.h"

namespace graphics::skin {

void CLayer::WriteToXml(wxXmlNode& node, IResourceOutputStore& /*store*/) const {
  xml::WriteMargins(node, "content-margins", contentMargins);
  xml::WriteDouble(node, "horzalign", horzAlign);
  xml::WriteDouble(node, "vertalign", vertAlign);
}

void CLayer::ReadFromXml(const wxXmlNode& node, IResourceInputStore& /*store*/) {
  xml::ReadMargins(node, "content-margins", contentMargins);
  xml::ReadDouble(node, "horzalign", horzAlign);
  xml::ReadDouble(node, "vertalign", vertAlign);
}

CDoubleSize CLayer::GetPreferredSize(TEffectGraphicsContext& /*context*/, ITextSource* /*texts*/,
                                     IAnimationSource* /*animations*/) const {
  return {contentMargins.left + contentMargins.right, contentMargins.top + contentMargins.bottom};
}

CDoubleSize CLayer::GetPreferredSizeForWidth(TEffectGraphicsContext& context, ITextSource* texts,
                                             IAnimationSource* animations, std::int32_t width) const {
  return {static_cast<double>(width), GetPreferredSize(context, texts, animations).height};
}

CDoubleRect CLayer::CalcContentRect(const CDoubleRect& rect) const {
  return rect.Deflated(contentMargins.Resolve(rect.width, rect.height));
}

wxPoint CLayer::AlignIn(const CDoubleRect& box, CDoubleSize content) const {
  return {TruncateToPixel(box.left + (box.width - content.width) * horzAlign),
          TruncateToPixel(box.top + (box.height - content.height) * vertAlign)};
}

orlo::P<CLayer> CreateLayer(const wxString& name) {
  if (name == CAnimationLayer::kTypeName) return orlo::makeObject<CAnimationLayer>();
  if (name == CTextLayer::kTypeName) return orlo::makeObject<CTextLayer>();
  if (name == CCustomLayer::kTypeName) return orlo::makeObject<CCustomLayer>();
  return nullptr;
}

}  // namespace graphics::skin
