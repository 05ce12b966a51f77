#pragma once

#include "filter/Layer.h"
#include "graphics/model/GraphicDocument.h"

#include <vector>

namespace authfilter {

/// Splits a page into layers in paint order: runs of static elements share one, each element that changes gets one of
/// its own. All layers have the page's rectangle, so that their coordinates are alike.
std::vector<orlo::P<CLayer>> BuildLayers(graphics::CGraphicDocument& page);

}  // namespace authfilter
