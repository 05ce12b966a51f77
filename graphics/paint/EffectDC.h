#pragma once

#include "foundation/Pointer.h"
#include "graphics/paint/EffectDCImpl.h"
#include "graphics/paint/EffectGraphicsContext.h"
#include "graphics/paint/EffectSwitches.h"
#include "graphics/paint/native/DrawingTarget.h"

#include <wx/dcclient.h>
#include <wx/dcgraph.h>
#include <wx/dcmemory.h>

#include <cstdint>
#include <type_traits>

namespace graphics {

/// A device context that applies effects to what is drawn on it: an ordinary wxDC for those who draw. It belongs to
/// the thread that paints, which holds the toolkit's lock from its making to its end.
class CEffectDC : public wxDC, public virtual IEffectDC {
public:
  bool HasFixedBrush() const override { return impl_.effects.fixedBrush; }
  bool HasFixedPen() const override { return impl_.effects.fixedPen; }
  void SetFixedBrush(const wxBrush* brush) override;
  const wxBrush* GetFixedBrush() const override { return &GetBrush(); }
  void SetFixedPen(const wxPen* pen) override;
  const wxPen* GetFixedPen() const override { return &GetPen(); }
  void SetAlphaMask(bool on) override { impl_.SetAlphaMask(on); }
  bool IsAlphaMask() const override { return impl_.effects.alphaMask; }

  /// With caching on, SetFont passes over a font with the same native description as the one before it.
  virtual void SetFontCaching(bool on);
  virtual bool IsFontCaching() const { return impl_.effects.fontCaching; }
  /// Text is measured alike at every scale and drawn as it is measured, its edges smoothed in grey: a layout holds
  /// whatever size it is drawn at.
  void SetScalableText(bool on) { impl_.effects.scalableText = on; }
  bool IsScalableText() const { return impl_.effects.scalableText; }
  /// Colours set from now on become grey.
  virtual void SetGreyscale(bool on) { impl_.effects.greyscale = on; }
  virtual bool IsGreyscale() const { return impl_.effects.greyscale; }

  /// DrawText lays text along the circle, each text going on where the one before it ended. Turning it on makes room
  /// again; radius, angle and the way round so far stay.
  virtual void SetCircleText(bool on);
  virtual bool IsCircleText() const { return impl_.effects.circleText; }
  /// In radians, clockwise from the direction of the x axis.
  virtual void SetCircleAngle(double angle) { impl_.effects.circle.angle = angle; }
  virtual double GetCircleAngle() const { return impl_.effects.circle.angle; }
  virtual void SetCircleRadius(double radius) { impl_.effects.circle.radius = radius; }
  virtual double GetCircleRadius() const { return impl_.effects.circle.radius; }
  virtual void SetCircleCenter(CDoublePoint center) { impl_.effects.circleCenter = center; }
  virtual CDoublePoint GetCircleCenter() const { return impl_.effects.circleCenter; }

  virtual void DrawCircleText(const wxString& text, wxPoint centre, double radius, double angle);
  /// Lines are drawn one below the other, each in the outline's colour one pixel off to every side, then in the
  /// fill's.
  virtual void DrawOutlinedText(const wxString& text, std::int32_t x, std::int32_t y, const wxColour& fill,
                                const wxColour& outline);
  /// Letters one by one along a circle that tightens to a spiral, by one letter height a turn. Nothing is drawn below
  /// a radius of 15 pixels.
  virtual CCircleTextState DrawCircleTextFrom(const wxString& text, wxPoint centre, double radius, double angle,
                                              double offset);

  /// Brings the pixels to the surface; the one who made the context calls it before its end.
  void Flush() { impl_.Flush(); }
  bool IsCircleFull() const { return impl_.effects.circle.full; }

protected:
  explicit CEffectDC(const CDrawingTarget& target);
  /// Carries the switches over if the source is an effect context; grey, font caching and circle stay behind.
  void TakeEffectsOf(const wxDC& source);

private:
  CEffectDCImpl& impl_;
};

/// What a context is built from. A memory context stands for every context that draws into a bitmap: one of the
/// toolkit's own or an effect context.
template <class Arg>
using TEffectSource = std::conditional_t<std::is_same_v<Arg, wxMemoryDC&>, wxDC&, Arg>;

/// DC is wxMemoryDC for a bitmap's main context and wxGCDC for the contexts that painters make on top of another one
/// or on a bitmap of their own.
template <class DC, class Arg>
class TEffectDCBase : public CEffectDC {
protected:
  explicit TEffectDCBase(TEffectSource<Arg> source) : CEffectDC(TargetOf(source)) {}

public:
  /// A graphics context on this device context, with the alpha mask as it stands now. Must not outlive this object.
  orlo::P<TEffectGraphicsContext> CreateEffectContext() requires std::is_same_v<DC, wxGCDC> {
    orlo::P<TEffectGraphicsContext> context;
    context.attach(new TEffectGraphicsContext(this));
    context->alphaMask = IsAlphaMask();
    return context;
  }
};

template <class DC, class Arg>
class TEffectDC : public TEffectDCBase<DC, Arg> {
public:
  explicit TEffectDC(TEffectSource<Arg> source) : TEffectDCBase<DC, Arg>(source) {
    if constexpr (std::is_base_of_v<wxDC, std::remove_reference_t<Arg>>) this->TakeEffectsOf(source);
  }
};

using CBitmapEffectDC = TEffectDC<wxMemoryDC, wxBitmap&>;
using CSmoothEffectDC = TEffectDC<wxGCDC, wxMemoryDC&>;

}  // namespace graphics
