#include "filter/LayerBuild.h"

#include "filter/DocumentLayer.h"
#include "filter/ExclusiveLayer.h"
#include "foundation/Cast.h"
#include "graphics/animation/AnimationElement.h"
#include "graphics/elements/GraphicMirror.h"
#include "graphics/model/GraphicLayers.h"

namespace authfilter {

namespace {

std::int32_t kindOf(graphics::CGraphicElement& element) {
  // A mirror shows what lies under it, and that changes with the layers below.
  if (orlo::tryCast<graphics::CGraphicMirror>(&element)) return graphics::CGraphicLayer::kExclusive;
  if (orlo::tryCast<graphics::animation::IAnimationElement>(&element)) return graphics::CGraphicLayer::kExclusive;
  return graphics::CGraphicLayer::kStatic;
}

}  // namespace

std::vector<orlo::P<CLayer>> BuildLayers(graphics::CGraphicDocument& page, std::int64_t frameRateNum,
                                         std::int64_t frameRateDen) {
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
    if (layer->GetKind() == graphics::CGraphicLayer::kStatic)
      layers.push_back(orlo::makeObject<CDocumentLayer>(document));
    else
      layers.push_back(orlo::makeObject<CExclusiveLayer>(document, frameRateNum, frameRateDen));
  }
  return layers;
}

}  // namespace authfilter
