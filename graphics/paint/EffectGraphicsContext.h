#pragma once

#include "foundation/Object.h"

#include <wx/colour.h>
#include <wx/dc.h>
#include <wx/font.h>
#include <wx/graphics.h>

namespace graphics {

/// The drawing that goes straight to the graphics context of a device context, with the alpha mask applied to bitmaps.
class TEffectGraphicsContext : public orlo::CObject {
public:
  /// The device context must have a graphics context and outlive this object.
  explicit TEffectGraphicsContext(wxDC* target) : context(target->GetGraphicsContext()), dc(target) {}

  /// Scaled into the place with the interpolation of the native context. A place without an extent draws nothing.
  virtual void DrawBitmap(const wxBitmap& bitmap, double x, double y, double w, double h);
  /// A part of the bitmap as if it were a bitmap of its own, without a copy of it. A part that reaches out of the
  /// bitmap draws nothing.
  virtual void DrawBitmapPart(const wxBitmap& bitmap, const wxRect& part, double x, double y, double w, double h);
  virtual wxGraphicsMatrix CreateMatrix(double a, double b, double c, double d, double tx, double ty);
  virtual wxGraphicsMatrix GetTransform() const;
  virtual void PushState();
  virtual void PopState();
  /// A matrix that flattens everything, scales by more than 10000 either way or leads farther than kFarthestPixel hides
  /// what is drawn until PopState.
  virtual void SetTransform(const wxGraphicsMatrix& matrix);
  /// For graphics/paint/native alone.
  virtual void* GetNativeContext() const;
  /// A place without an extent hides everything.
  virtual void Clip(double x, double y, double w, double h);
  virtual void ResetClip();

  /// One line of text in pixels, alike at every scale. Nothing for a font that isn't ok.
  static wxSize MeasureLine(const wxString& text, const wxFont& font);
  /// One line of text with its top left corner at the place, as wide as it is measured at every scale, its edges
  /// smoothed in grey. Draws nothing where letters come out larger than the font library can count.
  void DrawLine(const wxString& text, const wxFont& font, const wxColour& colour, double x, double y);

  wxGraphicsContext* context;
  wxDC* dc;
  bool alphaMask = false;
};

}  // namespace graphics
