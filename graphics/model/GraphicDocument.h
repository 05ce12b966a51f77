#pragma once

#include "graphics/model/GraphicContainer.h"

namespace graphics {

/// The container that a page is, or the inner page of a mirror.
class CGraphicDocument : public CGraphicContainer {};

}  // namespace graphics
