#include "graphics/model/GraphicLayers.h"

namespace graphics {

orlo::P<CGraphicLayer> CGraphicLayers::GetLayerFor(std::int32_t kind) {
  const bool fits = !layers_.empty() && layers_.back()->GetKind() == kind &&
                    (kind != CGraphicLayer::kExclusive || layers_.back()->IsEmpty());
  if (!fits) {
    auto layer = orlo::makeObject<CGraphicLayer>();
    layer->SetKind(kind);
    Add(layer);
  }
  return layers_.back();
}

}  // namespace graphics
