#pragma once

#include "graphics/elements/GraphicFigure.h"
#include "graphics/model/GraphicType.h"

namespace graphics {

class CGraphicRectangle : public CGraphicFigure {
public:
  void Paint(CPaintContext& context) override;
  orlo::P<CGraphicElement> Clone() const override;
  std::int32_t GetType() const override { return GraphicType::kRectangle; }
};

}  // namespace graphics
