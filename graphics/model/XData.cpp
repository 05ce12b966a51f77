#include "graphics/model/XData.h"

#include "graphics/geometry/XmlGeometry.h"
#include "graphics/geometry/XmlValues.h"

namespace graphics {

orlo::P<CXData> CXData::Create(const wxString& typeName) {
  if (typeName == "string") return orlo::makeObject<CStringXData>();
  if (typeName == "rect") return orlo::makeObject<CRectXData>();
  if (typeName == "int") return orlo::makeObject<CIntXData>();
  return nullptr;
}

void CStringXData::WriteToXml(wxXmlNode& node, IResourceOutputStore&) const {
  xml::WriteText(node, "value", value);
}

void CStringXData::ReadFromXml(const wxXmlNode& node, IResourceInputStore&) {
  xml::ReadText(node, "value", value);
}

void CRectXData::WriteToXml(wxXmlNode& node, IResourceOutputStore&) const {
  xml::WriteRect(node, "value", value);
}

void CRectXData::ReadFromXml(const wxXmlNode& node, IResourceInputStore&) {
  xml::ReadRect(node, "value", value);
}

bool CRectXData::IsEmpty() const {
  return value.left == 0 || value.top == 0 || value.width == 0 || value.height == 0;
}

void CIntXData::WriteToXml(wxXmlNode& node, IResourceOutputStore&) const {
  xml::WriteInt(node, "value", value);
}

void CIntXData::ReadFromXml(const wxXmlNode& node, IResourceInputStore&) {
  xml::ReadInt(node, "value", value);
}

}  // namespace graphics
