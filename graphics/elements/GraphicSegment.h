#pragma once

#include "graphics/geometry/DoublePoint.h"
#include "graphics/model/GraphicElement.h"

#include <wx/pen.h>

namespace graphics {

/// What the kinds have that lead from one point of the page to another. The points are page units and independent of
/// the frame; the pen is black and one pixel wide, and not part of files.
class CGraphicSegment : public CGraphicElement {
public:
  CDoublePoint GetStart() const { return start_; }
  void SetStart(CDoublePoint start) { start_ = start; }
  CDoublePoint GetEnd() const { return end_; }
  void SetEnd(CDoublePoint end) { end_ = end; }
  const wxPen& GetPen() const { return pen_; }
  void SetPen(const wxPen& pen) { pen_ = pen; }

  void Assign(const CGraphicBase& other) override;
  void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const override;
  void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) override;

protected:
  CGraphicSegment() = default;

private:
  wxPen pen_{*wxBLACK_PEN};
  CDoublePoint start_;
  CDoublePoint end_;
};

}  // namespace graphics
