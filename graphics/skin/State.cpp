#include "graphics/skin/State.h"

#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlValues.h"
#include "graphics/skin/LargestOf.h"

namespace graphics::skin {

void CState::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  xml::WriteText(node, "name", name_);
  xml::CChildAppender layers(xml::AppendChild(node, "layers"));
  for (const auto& layer : layers_) layer->WriteToXml(layers.Append(layer->GetLayerTypeName()), store);
}

void CState::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  xml::ReadText(node, "name", name_);
  if (const wxXmlNode* const layers = xml::FindChild(node, "layers")) ReadLayers(*layers, store);
}

/// The toolkit gives its text nodes the name of a kind of layer, "text".
void CState::ReadLayers(const wxXmlNode& node, IResourceInputStore& store) {
  for (const wxXmlNode* child = node.GetChildren(); child && layers_.size() < kMostLayers; child = child->GetNext()) {
    if (child->GetType() != wxXML_ELEMENT_NODE) continue;
    const orlo::P<CLayer> layer = CreateLayer(child->GetName());
    if (!layer) continue;
    layer->ReadFromXml(*child, store);
    AddLayer(layer);
  }
}

CDoubleSize CState::GetPreferredSize(TEffectGraphicsContext& context, ITextSource* texts,
                                     IAnimationSource* animations) const {
  return LargestOf(layers_, [&](const CLayer& layer) { return layer.GetPreferredSize(context, texts, animations); });
}

CDoubleSize CState::GetPreferredSizeForWidth(TEffectGraphicsContext& context, ITextSource* texts,
                                             IAnimationSource* animations, std::int32_t width) const {
  return LargestOf(
      layers_, [&](const CLayer& layer) { return layer.GetPreferredSizeForWidth(context, texts, animations, width); });
}

}  // namespace graphics::skin
