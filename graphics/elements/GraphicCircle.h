#pragma once

#include "graphics/elements/GraphicFigure.h"
#include "graphics/model/GraphicType.h"

namespace graphics {

/// A circle round the middle of its frame, as wide as the frame.
class CGraphicCircle : public CGraphicFigure {
public:
  void Paint(CPaintContext& context) override;
  orlo::P<CGraphicElement> Clone() const override;
  std::int32_t GetType() const override { return GraphicType::kCircle; }
};

}  // namespace graphics
