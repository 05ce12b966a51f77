#pragma once

#include <wx/brush.h>
#include <wx/pen.h>

namespace graphics {

/// The effects that cross from one device context to the next that is made on top of it.
class IEffectDC {
public:
  virtual ~IEffectDC() = default;

  virtual bool HasFixedBrush() const = 0;
  virtual bool HasFixedPen() const = 0;
  /// A brush goes straight to the context and stays whatever SetBrush asks for; null takes the lock off and leaves the
  /// brush as it is.
  virtual void SetFixedBrush(const wxBrush* brush) = 0;
  /// The context's current brush, fixed or not.
  virtual const wxBrush* GetFixedBrush() const = 0;
  virtual void SetFixedPen(const wxPen* pen) = 0;
  virtual const wxPen* GetFixedPen() const = 0;
  /// Everything is drawn as white or as alpha values from now on. Turning it on sets text colour, brush and pen to
  /// white, turning it off leaves them.
  virtual void SetAlphaMask(bool on) = 0;
  virtual bool IsAlphaMask() const = 0;
};

}  // namespace graphics
