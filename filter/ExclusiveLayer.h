#pragma once

#include "filter/Layer.h"

namespace authfilter {

/// One element that changes, or that shows what changes below it. It is drawn anew at each repaint.
class CExclusiveLayer : public CLayer {
public:
  using CLayer::CLayer;

  std::int32_t IsExclusive() const override { return 1; }
  void Paint(CFrame& frame) override { GetDocument()->Paint(frame.Draw()); }
};

}  // namespace authfilter
