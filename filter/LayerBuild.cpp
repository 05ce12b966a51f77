#include "filter/LayerBuild.h"

#include "filter/DocumentLayer.h"
#include "filter/ExclusiveLayer.h"
#include "foundation/Cast.h"
#include "graphics/elements/GraphicMirror.h"
#include "graphics/model/GraphicLayers.h"

namespace authfilter {

namespace {

std::int32_t kindOf(graphics::CGraphicElement& element) {
  // A mirror shows what lies under it, and that changes with the layers below.
  if (orlo::tryCast<graphics::CGraphicMirror>(&element)) return graphics::CGraphicLayer::kExclusive;
  return graphics::CGraphicLayer::kStatic;
}

orlo::P<CLayer> makeLayer(std::int32_t kind, const orlo::P<graphics::CGraphicDocument>& document) {
  if (kind == graphics::CGraphicLayer::kStatic) return orlo::makeObject<CDocumentLayer>(document);
  return orlo::makeObject<CExclusiveLayer>(document);
}

}  // namespace

std::vector<orlo::P<CLayer>> BuildLayers(graphics::CGraphicDocument& page) {
  graphics::CGraphicLayers sorted;
  for (std::size_t index = 0; index < page.GetCount(); ++index) {
    const orlo::P<graphics::CGraphicElement> element = page.GetElement(index);
    sorted.GetLayerFor(kindOf(*element))->Add(element);
  }

  std::vector<orlo::P<CLayer>> layers;
  for (std::size_t index = 0; index < sorted.GetCount(); ++index) {
    const orlo::P<graphics::CGraphicLayer> layer = sorted.GetItem(index);
    const auto document = orlo::makeObject<graphics::CGraphicDocument>();
    document->AddLayer(*layer);
    document->SetContentBox(page.GetPageRect());
    layers.push_back(makeLayer(layer->GetKind(), document));
  }
  return layers;
}

}  // namespace authfilter
