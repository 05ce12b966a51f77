#pragma once

#include "graphics/model/GraphicElement.h"

#include <wx/brush.h>
#include <wx/pen.h>

namespace graphics {

/// What the kinds have whose frame is outlined with a pen and filled with a brush. A new one has a black outline and
/// is not filled.
class CGraphicFigure : public CGraphicElement {
public:
  const wxPen& GetPen() const { return pen_; }
  void SetPen(const wxPen& pen) { pen_ = pen; }
  const wxBrush& GetBrush() const { return brush_; }
  void SetBrush(const wxBrush& brush) { brush_ = brush; }

  void Assign(const CGraphicBase& other) override;
  void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const override;
  void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) override;

protected:
  CGraphicFigure() = default;

private:
  wxPen pen_{*wxBLACK_PEN};
  wxBrush brush_{*wxTRANSPARENT_BRUSH};
};

}  // namespace graphics
