#pragma once

#include "filter/Frame.h"
#include "foundation/Object.h"
#include "foundation/Pointer.h"
#include "graphics/model/GraphicDocument.h"

#include <wx/string.h>

#include <cstdint>

namespace authfilter {

/// A run of page elements that the filter paints as one.
class CLayer : public orlo::CObject {
public:
  explicit CLayer(const orlo::P<graphics::CGraphicDocument>& document) : document_(document) {}

  /// 1 for a layer of one element that may change from frame to frame, 0 for one that never does.
  virtual std::int32_t IsExclusive() const = 0;
  virtual void Paint(CFrame& frame) = 0;
  /// False if it shows the same in all frames.
  virtual bool MayChange() const { return false; }
  /// True if it would show something else than when it was painted last. Takes no lock.
  virtual bool HasChanged() const { return false; }
  /// True if it is known that nothing below can be seen through it in the area.
  virtual bool Hides(const wxRect&) const { return false; }
  /// Instead of Paint, if another layer hides the area.
  virtual void PassOver(const wxRect&, const CPageGeometry&) {}
  /// The pixels that it may touch.
  virtual wxRect GetArea(const CPageGeometry& geometry) const { return geometry.frame; }

  /// Moves the layer's animations on by one frame of the host. True if the layer must be painted again.
  virtual bool NextFrame() { return false; }
  virtual void Open(const wxString& filterDir, const wxString& animationDir, const wxString& themeDir);
  virtual void Close() {}
  /// The next calls come from another thread.
  virtual void NewThread() {}

  const orlo::P<graphics::CGraphicDocument>& GetDocument() const { return document_; }

private:
  orlo::P<graphics::CGraphicDocument> document_;
};

}  // namespace authfilter
