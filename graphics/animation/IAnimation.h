#pragma once

#include "foundation/Base.h"
#include "foundation/Pointer.h"
#include "graphics/geometry/DoubleRect.h"

#include <wx/bitmap.h>
#include <wx/string.h>

#include <cstdint>

class wxXmlNode;

namespace graphics {
class IResourceInputStore;
class IResourceOutputStore;
class TEffectGraphicsContext;
}  // namespace graphics

namespace graphics::animation {

/// Pictures that follow one another, a position among them, and how long each one stays. It doesn't run by itself:
/// somebody calls Next. Stepping, and asking which picture is there, touch no picture and need no lock; everything else
/// is called with the toolkit's lock held.
class IAnimation : public virtual orlo::IBase {
public:
  virtual void Rewind() = 0;
  /// Moves to the next frame. False, and nothing moves, on the last one.
  virtual bool Next() = 0;
  /// Null if there is none. Frames stay the animation's, and live until its frames change.
  virtual const wxBitmap* GetFirstFrame() const = 0;
  /// Null for a position past the end and for a picture that could not be read.
  virtual const wxBitmap* GetCurrentFrame() const = 0;
  virtual void SetLoop(bool loop) = 0;
  virtual bool GetLoop() const = 0;
  /// How long the current frame stays, in milliseconds.
  virtual std::int32_t GetDelay() const = 0;
  virtual void Clear() = 0;
  virtual bool IsEmpty() const = 0;
  /// In pixels, -1 if unknown.
  virtual std::int32_t GetWidth() const = 0;
  virtual std::int32_t GetHeight() const = 0;
  virtual void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const = 0;
  /// Adds to the frames that are there. Throws orlo::CError beyond the limits of FrameList.h.
  virtual void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) = 0;
  virtual void Start() = 0;
  virtual bool IsStarted() const = 0;
  virtual void Stop() = 0;
  /// Scales the current frame into the rectangle; the first one, wherever the position, while it is stopped.
  virtual void Paint(TEffectGraphicsContext& context, const CDoubleRect& rect) const = 0;
  /// A new empty animation of the same kind.
  virtual orlo::P<IAnimation> CreateNew() const = 0;
  /// The word under which the kind is stored.
  virtual wxString GetTypeName() const = 0;
};

}  // namespace graphics::animation
