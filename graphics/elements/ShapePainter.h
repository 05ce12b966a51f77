#pragma once

#include "graphics/elements/GraphicShape.h"
#include "graphics/paint/EffectDC.h"
#include "graphics/paint/PaintContext.h"

#include <wx/geometry.h>
#include <wx/graphics.h>

#include <vector>

namespace graphics {

/// Where the outline of a shape runs, in device pixels. At right angles it follows whole pixels, and an outline that is
/// an odd number of pixels wide runs through the middle of those at the frame's edges, so that it looks the same on all
/// sides. Width and height are never negative, and what lies farther away than 100,000 pixels is pulled in.
CDoubleRect FrameOfOutline(const CDoubleRect& frame, double rotation, bool oddPen);

/// Paints one shape once.
class CShapePainter {
public:
  CShapePainter(const CGraphicShape& shape, CPaintContext& context);

  void Paint();

private:
  wxPen DevicePen() const;
  void SetBrush();
  /// A dash pattern is given up along a length that nobody can wait for.
  void SolidIfLong(double length);
  double CornerRadius() const;
  std::vector<wxPoint2DDouble> FreeFormPoints() const;
  void DrawFreeForm(wxGraphicsContext& graphics);

  const CGraphicShape& shape_;
  const CPaintContext& context_;
  CSmoothEffectDC dc_;
  CDoubleRect rect_;
};

}  // namespace graphics
