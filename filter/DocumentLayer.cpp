#include "filter/DocumentLayer.h"

namespace authfilter {

void CDocumentLayer::Paint(CFrame& frame) {
  const bool isNew = !picture_;
  if (isNew) picture_.emplace().DrawToStay(frame.Canvas(), *GetDocument(), GetArea(frame.Geometry()));
  frame.Blend(*picture_);
  if (isNew && !frame.Canvas().MayKeep(picture_->GetArea().GetSize())) picture_.reset();
}

}  // namespace authfilter
