#pragma once

#include "filter/Layer.h"
#include "graphics/model/GraphicDocument.h"

#include <vector>

namespace authfilter {

/// Splits a page into layers in paint order: runs of static elements share one, each element that changes gets one of
/// its own. All layers have the page's rectangle, so that their coordinates are alike. The rate is the host's frames a
/// second, as a fraction: animations run by it.
std::vector<orlo::P<CLayer>> BuildLayers(graphics::CGraphicDocument& page, std::int64_t frameRateNum,
                                         std::int64_t frameRateDen);

}  // namespace authfilter
