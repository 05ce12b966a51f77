#pragma once

#include "graphics/elements/GraphicSegment.h"
#include "graphics/model/GraphicType.h"

namespace graphics {

class CGraphicLine : public CGraphicSegment {
public:
  void Paint(CPaintContext& context) override;
  orlo::P<CGraphicElement> Clone() const override;
  std::int32_t GetType() const override { return GraphicType::kLine; }
};

}  // namespace graphics
