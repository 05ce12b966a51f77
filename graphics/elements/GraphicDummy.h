#pragma once

#include "graphics/model/GraphicElement.h"
#include "graphics/model/GraphicType.h"

namespace graphics {

/// Keeps a place free and shows nothing. It doesn't get smaller than its smallest size.
class CGraphicDummy : public CGraphicElement {
public:
  CDoubleSize GetMinSize() const { return minSize_; }
  void SetMinSize(CDoubleSize size) { minSize_ = size; }

  void SetSize(CDoubleSize size) override;
  void Assign(const CGraphicBase& other) override;
  orlo::P<CGraphicElement> Clone() const override;
  std::int32_t GetType() const override { return GraphicType::kDummy; }

private:
  CDoubleSize minSize_;
};

}  // namespace graphics
