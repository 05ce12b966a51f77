#pragma once

#include "graphics/geometry/DoublePoint.h"
#include "graphics/paint/CircleTextState.h"

#include <wx/dcgraph.h>

namespace graphics {

/// The effects that a context applies to what is drawn on it.
struct CEffects {
  bool alphaMask = false;
  bool greyscale = false;
  bool fixedPen = false;
  bool fixedBrush = false;
  bool circleText = false;
  bool fontCaching = false;
  /// Letters stand at the same places at every scale.
  bool scalableText = false;
  /// A grey halo round text that has the halo's colour on a ground of that colour.
  bool textHalo = false;
  CCircleTextState circle;
  wxColour haloColour{255, 255, 255, 255};
  CDoublePoint circleCenter;
  /// Native description of the font passed on last.
  wxString lastFont;
};

/// What an effect context draws with: the toolkit's device context on a graphics context, with the effects applied to
/// every colour, bitmap and text that passes. Lines and rectangles with a pen of one pixel cover whole pixels, and
/// coordinates far outside of any picture are pulled in to where the graphics library can still count.
class CEffectDCImpl : public wxGCDCImpl {
public:
  /// Takes over the graphics context, which draws on a surface of the given size; null gives a context that draws
  /// nothing.
  CEffectDCImpl(wxDC* owner, wxGraphicsContext* context, wxSize size);

  CEffects effects;

  /// Past all effects.
  void SetBasePen(const wxPen& pen);
  void SetBaseBrush(const wxBrush& brush) { wxGCDCImpl::SetBrush(brush); }

  void SetAlphaMask(bool on);
  CCircleTextState DrawCircleTextFrom(const wxString& text, wxPoint centre, CCircleTextState state);

  void SetFont(const wxFont& font) override;
  void SetPen(const wxPen& pen) override;
  void SetBrush(const wxBrush& brush) override;
  void SetTextForeground(const wxColour& colour) override;

  void DoDrawBitmap(const wxBitmap& bitmap, wxCoord x, wxCoord y, bool useMask) override;
  void DoDrawText(const wxString& text, wxCoord x, wxCoord y) override;
  void DoDrawRotatedText(const wxString& text, wxCoord x, wxCoord y, double angle) override;
  void DoGetTextExtent(const wxString& text, wxCoord* width, wxCoord* height, wxCoord* descent = nullptr,
                       wxCoord* externalLeading = nullptr, const wxFont* font = nullptr) const override;
  bool DoGetPartialTextExtents(const wxString& text, wxArrayInt& widths) const override;
  wxCoord GetCharHeight() const override;
  wxCoord GetCharWidth() const override;
  void DoDrawLine(wxCoord x1, wxCoord y1, wxCoord x2, wxCoord y2) override;
  void DoDrawRectangle(wxCoord x, wxCoord y, wxCoord width, wxCoord height) override;
  void DoDrawRoundedRectangle(wxCoord x, wxCoord y, wxCoord width, wxCoord height, double radius) override;
  void DoDrawEllipse(wxCoord x, wxCoord y, wxCoord width, wxCoord height) override;
  void DoDrawPolygon(int n, const wxPoint points[], wxCoord dx, wxCoord dy, wxPolygonFillMode fill) override;

  /// 96 by 96, the resolution that text is laid out with.
  wxSize GetPPI() const override { return {96, 96}; }
  void* GetCairoContext() const override;
  void DoGetSize(int* width, int* height) const override;
  void DoGetSizeMM(int* width, int* height) const override;

private:
  void DrawBaseText(const wxString& text, wxCoord x, wxCoord y);
  void DrawBaseBitmap(const wxBitmap& bitmap, wxCoord x, wxCoord y, bool useMask);
  bool CanDrawLetters() const;
  void DrawScalableText(const wxString& text, wxCoord x, wxCoord y, double angle);
  void DrawHaloText(const wxString& text, wxCoord x, wxCoord y);
  void DrawBitmapAsMask(const wxBitmap& bitmap, wxCoord x, wxCoord y, bool useMask);

  wxSize size_;
};

}  // namespace graphics
