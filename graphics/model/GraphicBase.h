#pragma once

#include "foundation/Object.h"
#include "graphics/geometry/DoublePoint.h"
#include "graphics/geometry/DoubleRect.h"
#include "graphics/geometry/DoubleSize.h"
#include "graphics/geometry/Matrix.h"

#include <wx/string.h>

#include <array>
#include <cstdint>
#include <vector>

namespace graphics {

struct CPaintContext;
class IGraphicListener;

/// What everything on a page has: a place, a size, a rotation, a name, mirror switches and listeners. Lengths are page
/// units, angles degrees. An object is used by one thread at a time.
class CGraphicBase : public orlo::CObject {
public:
  /// Listeners are not owned. One that was added several times is told as often, and removed altogether.
  void AddListener(IGraphicListener* listener);
  void RemoveListener(IGraphicListener* listener);
  void NotifyChanged();

  void SetName(const wxString& name) { name_ = name; }
  bool IsVisible() const { return visible_; }
  void SetVisible(bool visible) { visible_ = visible; }
  /// One of the run-time switches, counted from bit 0.
  bool HasFlag(unsigned bit) const { return (GetFlags() >> bit & 1U) != 0; }

  virtual wxString GetName() const { return name_; }
  virtual wxString GetDisplayName() const { return GetName(); }

  virtual CDoublePoint GetTopLeft() const;
  virtual void SetTopLeft(double x, double y);
  virtual CDoublePoint GetCenter() const { return center_; }
  virtual void SetCenter(CDoublePoint center);
  /// The size before rotation.
  virtual CDoubleSize GetSize() const { return size_; }
  virtual void SetSize(CDoubleSize size);
  /// Sets the size such that the bounding box of the rotated element gets the wanted size. At angles other than the
  /// right ones neither side gets shorter than 1.
  virtual void SetBoundingSize(CDoubleSize size);
  virtual CDoubleSize GetBoundingSize() const;

  /// Fractions of a degree are dropped, and the result is brought into 0 to 360, both ends included.
  virtual void SetRotation(double degrees);
  virtual double GetRotation() const { return rotation_; }
  /// Axis 0 is x, 1 is y.
  virtual void SetMirror(int axis, bool mirrored);
  virtual bool GetMirror(int axis) const;

  virtual CDoubleRect GetBoundingRect() const;
  /// Maps the unit square onto GetBoundingRect.
  virtual CMatrix GetBoundingMatrix() const;
  /// Maps the unrotated frame, centred on (0, 0), to its place on the page.
  virtual CMatrix GetElementMatrix() const;

  virtual void Paint(CPaintContext&) {}

  /// Run-time switches, never stored in a file.
  virtual void SetFlags(std::uint32_t flags) { flags_ = flags; }
  virtual std::uint32_t GetFlags() const { return flags_; }
  virtual bool GetFlag1() const { return HasFlag(1); }
  virtual void SetFlag1(bool on);

  virtual std::int32_t GetCursorHint() const { return -1; }
  /// True while the content that the element should show is missing.
  virtual bool IsContentEmpty() const { return false; }
  /// Moves and scales the element as its bounding rectangle goes through the matrix.
  virtual void Transform(const CMatrix& matrix);
  virtual wxString GetText() const { return {}; }

protected:
  /// As read from a file: without normalising, and nobody is told.
  void RestorePlace(CDoublePoint center, CDoubleSize size, double rotation);

private:
  std::vector<IGraphicListener*> listeners_;
  CDoublePoint center_;
  CDoubleSize size_;
  wxString name_;
  double rotation_ = 0;
  std::uint32_t flags_ = 1;
  std::array<bool, 2> mirror_{};
  bool visible_ = true;
};

}  // namespace graphics
