#include "graphics/geometry/XmlGeometry.h"

#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlValues.h"

namespace graphics::xml {

bool ReadPoint(const wxXmlNode& parent, const wxString& name, wxPoint& target) {
  const wxXmlNode* node = FindChild(parent, name);
  if (!node) return false;
  ReadInt(*node, "x", target.x);
  ReadInt(*node, "y", target.y);
  return true;
}

void WritePoint(wxXmlNode& parent, const wxString& name, const wxPoint& point) {
  wxXmlNode& node = AppendChild(parent, name);
  WriteInt(node, "x", point.x);
  WriteInt(node, "y", point.y);
}

bool ReadPoint(const wxXmlNode& parent, const wxString& name, CDoublePoint& target) {
  const wxXmlNode* node = FindChild(parent, name);
  if (!node) return false;
  ReadDouble(*node, "x", target.x);
  ReadDouble(*node, "y", target.y);
  return true;
}

void WritePoint(wxXmlNode& parent, const wxString& name, CDoublePoint point) {
  wxXmlNode& node = AppendChild(parent, name);
  WriteDouble(node, "x", point.x);
  WriteDouble(node, "y", point.y);
}

bool ReadSize(const wxXmlNode& parent, const wxString& name, CDoubleSize& target) {
  const wxXmlNode* node = FindChild(parent, name);
  if (!node) return false;
  ReadDouble(*node, "width", target.width);
  ReadDouble(*node, "height", target.height);
  return true;
}

void WriteSize(wxXmlNode& parent, const wxString& name, CDoubleSize size) {
  wxXmlNode& node = AppendChild(parent, name);
  WriteDouble(node, "width", size.width);
  WriteDouble(node, "height", size.height);
}

bool ReadRect(const wxXmlNode& parent, const wxString& name, CDoubleRect& target) {
  const wxXmlNode* node = FindChild(parent, name);
  if (!node) return false;
  ReadDouble(*node, "x", target.left);
  ReadDouble(*node, "y", target.top);
  ReadDouble(*node, "width", target.width);
  ReadDouble(*node, "height", target.height);
  return true;
}

void WriteRect(wxXmlNode& parent, const wxString& name, const CDoubleRect& rect) {
  wxXmlNode& node = AppendChild(parent, name);
  WriteDouble(node, "x", rect.left);
  WriteDouble(node, "y", rect.top);
  WriteDouble(node, "width", rect.width);
  WriteDouble(node, "height", rect.height);
}

namespace {

struct CMarginProperty {
  const char* name;
  double CMargins::*value;
};

constexpr CMarginProperty kMarginProperties[] = {
    {"left", &CMargins::left},
    {"top", &CMargins::top},
    {"right", &CMargins::right},
    {"bottom", &CMargins::bottom},
    {"left-factor", &CMargins::leftFactor},
    {"top-factor", &CMargins::topFactor},
    {"right-factor", &CMargins::rightFactor},
    {"bottom-factor", &CMargins::bottomFactor},
};

}  // namespace

bool ReadMargins(const wxXmlNode& parent, const wxString& name, CMargins& target) {
  const wxXmlNode* node = FindChild(parent, name);
  if (!node) return false;
  for (const CMarginProperty& property : kMarginProperties) ReadDouble(*node, property.name, target.*property.value);
  return true;
}

void WriteMargins(wxXmlNode& parent, const wxString& name, const CMargins& margins) {
  wxXmlNode& node = AppendChild(parent, name);
  for (const CMarginProperty& property : kMarginProperties) WriteDouble(node, property.name, margins.*property.value);
}

}  // namespace graphics::xml
