#pragma once

#include "graphics/model/GraphicElement.h"
#include "graphics/model/GraphicType.h"

namespace graphics {

/// The sheet that a page lies on, with its shadow to the right and below.
class CGraphicPaper : public CGraphicElement {
public:
  void Paint(CPaintContext& context) override;
  orlo::P<CGraphicElement> Clone() const override;
  std::int32_t GetType() const override { return GraphicType::kPaper; }
};

}  // namespace graphics
