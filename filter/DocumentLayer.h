#pragma once

#include "filter/Layer.h"
#include "filter/LayerPicture.h"

namespace authfilter {

/// A run of elements that never change. They are drawn once, at the size of the first repaint, into a picture that
/// each repaint lays over the frame. After that a repaint takes no lock.
class CDocumentLayer : public CLayer {
public:
  using CLayer::CLayer;

  std::int32_t IsExclusive() const override { return 0; }
  void Paint(CFrame& frame) override;

private:
  CLayerPicture picture_;
};

}  // namespace authfilter
