#pragma once

#include "graphics/geometry/DoubleRect.h"
#include "graphics/model/GraphicBase.h"
#include "graphics/paint/PaintMatrixDC.h"

namespace graphics {

/// Draws in the local box of an element: mirrored and turned as the element is, its centre comes to lie on the centre
/// of the target box, and from there the given matrix leads to the device's pixels.
class CPaintToDC : public CPaintMatrixDC {
public:
  CPaintToDC(wxDC* target, CMatrix targetToDevice, const CGraphicBase* element, const CDoubleRect& targetBox,
             const CDoubleRect& localBox);
};

}  // namespace graphics
