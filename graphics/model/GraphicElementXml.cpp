#include "graphics/geometry/XmlGeometry.h"
#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlValues.h"
#include "graphics/model/GraphicElement.h"

#include <algorithm>

namespace graphics {

void CGraphicElement::WriteToXml(wxXmlNode& node, IResourceOutputStore&) const {
  const auto isSet = [](const auto& entry) { return entry.second; };
  if (!GetName().empty()) xml::WriteText(node, "name", GetName());
  xml::WritePoint(node, "center", GetCenter());
  xml::WriteSize(node, "size", GetSize());
  xml::WriteBool(node, "coloured", IsColoured());
  if (GetMirror(0)) xml::WriteBool(node, "mirror-x", true);
  if (GetMirror(1)) xml::WriteBool(node, "mirror-y", true);
  xml::WriteDouble(node, "rotation", GetRotation());
  xml::WriteBool(node, "visible", IsVisible());
  if (modified_) xml::WriteBool(node, "modified", true);
  if (!contentId_.empty()) xml::WriteText(node, "content-id", contentId_);
  if (contentIndex_ > 0) xml::WriteInt(node, "content-index", contentIndex_);
  if (!textId_.empty()) xml::WriteText(node, "text-id", textId_);
  if (std::any_of(tags_.begin(), tags_.end(), isSet)) {
    xml::CChildAppender tags(xml::AppendChild(node, "tags"));
    for (const auto& [tag, set] : tags_)
      if (set) tags.Append(tag);
  }
  if (std::any_of(groups_.begin(), groups_.end(), isSet)) {
    xml::CChildAppender groups(xml::AppendChild(node, "groups"));
    for (const auto& [number, member] : groups_)
      if (member) xml::WriteInt(groups.Append("group"), "nr", number);
  }
}

void CGraphicElement::ReadFromXml(const wxXmlNode& node, IResourceInputStore&) {
  if (wxString name; xml::ReadText(node, "name", name)) SetName(name);
  CDoublePoint center = GetCenter();
  CDoubleSize size = GetSize();
  double rotation = GetRotation();
  xml::ReadPoint(node, "center", center);
  xml::ReadSize(node, "size", size);
  xml::ReadBool(node, "coloured", coloured_);
  if (bool mirrored = false; xml::ReadBool(node, "mirror-x", mirrored)) CGraphicBase::SetMirror(0, mirrored);
  if (bool mirrored = false; xml::ReadBool(node, "mirror-y", mirrored)) CGraphicBase::SetMirror(1, mirrored);
  xml::ReadDouble(node, "rotation", rotation);
  RestorePlace(center, size, rotation);
  if (bool visible = true; xml::ReadBool(node, "visible", visible)) SetVisible(visible);
  xml::ReadBool(node, "modified", modified_);
  xml::ReadText(node, "content-id", contentId_);
  xml::ReadInt(node, "content-index", contentIndex_);
  xml::ReadText(node, "text-id", textId_);
  if (const wxXmlNode* tags = xml::FindChild(node, "tags")) ReadTags(*tags);
  if (const wxXmlNode* groups = xml::FindChild(node, "groups")) ReadGroups(*groups);
}

void CGraphicElement::ReadTags(const wxXmlNode& node) {
  tags_.clear();
  for (const wxXmlNode* child = node.GetChildren(); child; child = child->GetNext())
    if (child->GetType() == wxXML_ELEMENT_NODE) SetTag(child->GetName(), true);
}

void CGraphicElement::ReadGroups(const wxXmlNode& node) {
  groups_.clear();
  for (const wxXmlNode* child = node.GetChildren(); child; child = child->GetNext()) {
    std::int32_t number = 0;
    if (child->GetName().IsSameAs("group", false)) xml::ReadInt(*child, "nr", number);
    if (number > 0) SetGroup(number, true);
  }
}

}  // namespace graphics
