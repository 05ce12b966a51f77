#include "graphics/elements/GraphicFigure.h"

#include "graphics/geometry/XmlStyles.h"

namespace graphics {

void CGraphicFigure::Assign(const CGraphicBase& other) {
  CGraphicElement::Assign(other);
  const auto* const figure = dynamic_cast<const CGraphicFigure*>(&other);
  if (!figure) return;
  pen_ = figure->pen_;
  brush_ = figure->brush_;
}

void CGraphicFigure::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  CGraphicElement::WriteToXml(node, store);
  xml::WriteBrush(node, "brush", brush_);
  xml::WritePen(node, "pen", pen_);
}

void CGraphicFigure::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  CGraphicElement::ReadFromXml(node, store);
  xml::ReadBrush(node, "brush", brush_);
  xml::ReadPen(node, "pen", pen_);
}

}  // namespace graphics
