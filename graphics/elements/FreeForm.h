#pragma once

#include "foundation/Object.h"
#include "foundation/Pointer.h"
#include "graphics/geometry/DoublePoint.h"
#include "graphics/model/GraphicDocument.h"

#include <wx/string.h>

#include <cstddef>
#include <vector>

namespace graphics {

/// A free form has at most so many points: each of them costs time in every row of pixels that its outline crosses.
constexpr std::size_t kMaxFreeFormPoints = 1'000;

/// A document like the other one with clones of its elements.
orlo::P<CGraphicDocument> CopyOutline(CGraphicDocument& document);

/// An outline of points, in units of its own, centred on (0, 0). The first point stands again at the end of an outline
/// that is closed. Used by one thread at a time, as the elements that it consists of.
class CFreeForm : public orlo::CObject {
public:
  /// Takes over the document, whose points are the outline, and moves its elements such that the middle of their
  /// bounding box comes to lie on (0, 0). Throws wxutil::CWXError if there are too many points.
  CFreeForm(const wxString& name, const orlo::P<CGraphicDocument>& document);

  /// An identifier such as "freeform.star".
  const wxString& GetName() const { return name_; }
  std::vector<CDoublePoint> GetOutline() const;

  virtual wxString GetDisplayName() const { return name_; }
  virtual orlo::P<CGraphicDocument> GetDocument() const { return document_; }
  /// Of the same class, with points of its own.
  virtual orlo::P<CFreeForm> Clone() const;

protected:
  orlo::P<CGraphicDocument> CopyDocument() const { return CopyOutline(*document_); }

private:
  wxString name_;
  orlo::P<CGraphicDocument> document_;
};

}  // namespace graphics
