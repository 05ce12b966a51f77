#pragma once

#include "graphics/model/GraphicElement.h"
#include "graphics/model/GraphicType.h"

namespace graphics {

/// A place and nothing more, as the outlines of free forms are made of.
class CGraphicPoint : public CGraphicElement {
public:
  orlo::P<CGraphicElement> Clone() const override;
  std::int32_t GetType() const override { return GraphicType::kPoint; }
};

}  // namespace graphics
