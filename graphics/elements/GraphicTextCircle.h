#pragma once

#include "graphics/elements/GraphicText.h"

namespace graphics {

/// Rich text that runs round the inside of a circle, clockwise from the top, in a spiral where one turn is not enough.
/// The rotation turns the text inside of a frame that stays. Text that finds no room any more is left out.
class CGraphicTextCircle : public CGraphicText {
public:
  void SetBoundingSize(CDoubleSize size) override { SetSize(size); }
  CDoubleSize GetBoundingSize() const override { return GetSize(); }
  void Paint(CPaintContext& context) override;
  orlo::P<CGraphicElement> Clone() const override;
  std::int32_t GetType() const override { return GraphicType::kTextCircle; }

private:
  void PaintText(CPaintContext& context, CDoublePoint centre);
};

}  // namespace graphics
