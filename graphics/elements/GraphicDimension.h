#pragma once

#include "graphics/elements/GraphicSegment.h"
#include "graphics/model/GraphicType.h"

namespace graphics {

/// A measure line: its ends are marked with ticks across it, three page units to either side.
class CGraphicDimension : public CGraphicSegment {
public:
  void Paint(CPaintContext& context) override;
  orlo::P<CGraphicElement> Clone() const override;
  std::int32_t GetType() const override { return GraphicType::kDimension; }
};

}  // namespace graphics
