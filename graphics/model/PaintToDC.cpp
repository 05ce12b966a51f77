#include "graphics/model/PaintToDC.h"

#include "graphics/geometry/Angles.h"
#include "graphics/geometry/Transform.h"

namespace graphics {

CPaintToDC::CPaintToDC(wxDC* target, CMatrix targetToDevice, const CGraphicBase* element, const CDoubleRect& targetBox,
                       const CDoubleRect& localBox)
    : CPaintMatrixDC(target, CMatrix::Identity()) {
  CTransform transform;
  transform.Apply(targetToDevice);
  transform.Apply(CMatrix::Translation(targetBox.GetCenter()));
  transform.Apply(CMatrix::Rotation(DegToRad(element->GetRotation())));
  transform.Apply(CMatrix::Scale(element->GetMirror(0) ? -1.0 : 1.0, element->GetMirror(1) ? -1.0 : 1.0));
  transform.Apply(CMatrix::Translation(-localBox.GetCenter()));
  matrix = transform.GetCurrent();
}

}  // namespace graphics
