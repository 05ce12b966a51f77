#pragma once

#include "graphics/elements/GraphicSegment.h"
#include "graphics/model/GraphicType.h"

namespace graphics {

/// A line with a filled head at its end. The head keeps its size in pixels whatever the scale of the page.
class CGraphicArrow : public CGraphicSegment {
public:
  void Paint(CPaintContext& context) override;
  orlo::P<CGraphicElement> Clone() const override;
  std::int32_t GetType() const override { return GraphicType::kArrow; }
};

}  // namespace graphics
