#pragma once

#include <wx/bitmap.h>
#include <wx/dc.h>
#include <wx/graphics.h>

namespace graphics {

/// A new graphics context, owned by who asked for it, and the size of the surface it draws on. The context is null if
/// there is nothing to draw on.
struct CDrawingTarget {
  wxGraphicsContext* context = nullptr;
  wxSize size;
};

/// Draws into the bitmap's own memory, with alpha.
CDrawingTarget TargetOf(wxBitmap& bitmap);
/// Draws on the surface of the other context, within its clipping box, with a state of its own.
CDrawingTarget TargetOf(wxDC& dc);

/// Fills whole pixels of the current transform's grid.
void FillPixels(wxGraphicsContext& context, double x, double y, double width, double height, const wxColour& colour);

/// The bitmap's own memory scaled into the place, through its mask if wanted. Draws nothing if the place has no extent
/// or is not finite.
void DrawBitmapInto(wxGraphicsContext& context, const wxBitmap& bitmap, double x, double y, double width, double height,
                    bool useMask);

/// A part of the bitmap as if it were a bitmap of its own. The part must lie in the bitmap.
void DrawBitmapPartInto(wxGraphicsContext& context, const wxBitmap& bitmap, const wxRect& part, double x, double y,
                        double width, double height, bool useMask);

}  // namespace graphics
