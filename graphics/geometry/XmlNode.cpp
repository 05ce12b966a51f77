#include "graphics/geometry/XmlNode.h"

namespace graphics::xml {

namespace {

wxXmlAttribute* FindAttribute(const wxXmlNode& node, const wxString& name) {
  wxXmlAttribute* attribute = node.GetAttributes();
  while (attribute && !IsSameName(attribute->GetName(), name)) attribute = attribute->GetNext();
  return attribute;
}

}  // namespace

const wxXmlNode* FindChild(const wxXmlNode& parent, const wxString& name) {
  for (const wxXmlNode* child = parent.GetChildren(); child; child = child->GetNext())
    if (child->GetType() == wxXML_ELEMENT_NODE && IsSameName(child->GetName(), name)) return child;
  return nullptr;
}

wxXmlNode& AppendChild(wxXmlNode& parent, const wxString& name) {
  return CChildAppender(parent).Append(name);
}

bool FindProperty(const wxXmlNode& node, const wxString& name, wxString& value) {
  const wxXmlAttribute* attribute = FindAttribute(node, name);
  if (!attribute) return false;
  value = attribute->GetValue();
  return true;
}

void SetProperty(wxXmlNode& node, const wxString& name, const wxString& value) {
  if (wxXmlAttribute* attribute = FindAttribute(node, name))
    attribute->SetValue(value);
  else
    node.AddAttribute(name, value);
}

wxXmlNode& CChildAppender::Append(const wxString& name) {
  auto* child = new wxXmlNode(wxXML_ELEMENT_NODE, name);
  if (last_)
    parent_.InsertChildAfter(child, last_);
  else
    parent_.AddChild(child);
  last_ = child;
  return *child;
}

}  // namespace graphics::xml
