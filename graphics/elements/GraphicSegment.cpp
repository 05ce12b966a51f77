#include "graphics/elements/GraphicSegment.h"

#include "graphics/geometry/XmlGeometry.h"

namespace graphics {

void CGraphicSegment::Assign(const CGraphicBase& other) {
  CGraphicElement::Assign(other);
  const auto* const segment = dynamic_cast<const CGraphicSegment*>(&other);
  if (!segment) return;
  pen_ = segment->pen_;
  start_ = segment->start_;
  end_ = segment->end_;
}

void CGraphicSegment::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  CGraphicElement::WriteToXml(node, store);
  xml::WritePoint(node, "start", start_);
  xml::WritePoint(node, "end", end_);
}

void CGraphicSegment::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  CGraphicElement::ReadFromXml(node, store);
  xml::ReadPoint(node, "start", start_);
  xml::ReadPoint(node, "end", end_);
}

}  // namespace graphics
