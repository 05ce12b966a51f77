#pragma once

#include "foundation/Object.h"
#include "graphics/geometry/Matrix.h"

#include <wx/dc.h>

namespace graphics {

/// Draws lines that stay one device pixel wide whatever the scale: a device context and the matrix that leads from
/// local coordinates to its pixels. The device context must outlive it and keeps the pen and brush set here.
class CPaintMatrixDC : public orlo::CObject {
public:
  CPaintMatrixDC(wxDC* target, CMatrix localToDevice) : matrix(localToDevice), dc(target) {}

  CMatrix GetMatrix() const { return matrix; }
  void SetPen(const wxPen& pen) { dc->SetPen(pen); }
  void SetBrush(const wxBrush& brush) { dc->SetBrush(brush); }
  /// Both ends go through the matrix and are rounded down to whole pixels.
  void DrawLine(double x1, double y1, double x2, double y2);

  CMatrix matrix;
  wxDC* dc;
  CDoublePoint position;
};

}  // namespace graphics
