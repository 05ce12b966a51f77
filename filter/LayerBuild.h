#pragma once

#include "graphics/model/GraphicDocument.h"

namespace authfilter {

struct CInfoStore;

/// Splits a page into layers of the instance in paint order: runs of static elements share one, each element that
/// changes gets one of its own. All layers have the page's rectangle, so that their coordinates are alike. Throws
/// orlo::CCastError for a movie image without a movie; the layers made so far stay.
void BuildLayers(CInfoStore& store, graphics::CGraphicDocument& page);

}  // namespace authfilter
