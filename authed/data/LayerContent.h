#pragma once

#include "graphics/geometry/DoubleRect.h"
#include "graphics/model/GraphicElement.h"
#include "graphics/paint/PaintContext.h"
#include "graphics/skin/CustomLayer.h"

#include <functional>

namespace authed::data {

/// Calls the painter of an element such that the element's frame comes to lie on the content box of a custom layer,
/// whose arguments for painting these are. The owner's pictures are kept apart from those of other owners. Nothing is
/// painted where box or frame has no extent.
void PaintInLayer(const graphics::skin::CCustomLayer& layer, graphics::CPaintContext& context,
                  graphics::TEffectGraphicsContext& target, const graphics::CDoubleRect& rect,
                  const graphics::CGraphicElement& element, const graphics::CGraphicElement& owner,
                  const std::function<void(graphics::CPaintContext&)>& paint);

}  // namespace authed::data
