#include "filter/DocumentLayer.h"

namespace authfilter {

void CDocumentLayer::Paint(CFrame& frame) {
  const bool isNew = !picture_.IsDrawn();
  if (isNew) picture_.DrawToStay(frame.Canvas(), *GetDocument(), GetArea(frame.Geometry()));
  frame.Blend(picture_);
  if (isNew && !frame.Canvas().MayKeep(picture_.GetArea().GetSize())) picture_ = {};
}

}  // namespace authfilter
