#include "graphics/model/XDatas.h"

#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlValues.h"

#include <algorithm>

namespace graphics {

void CXDatas::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  xml::CChildAppender children(node);
  for (const auto& [name, data] : entries_) {
    if (!data) continue;
    wxXmlNode& child = children.Append(name);
    xml::WriteText(child, "type", data->GetTypeName());
    data->WriteToXml(child, store);
  }
}

void CXDatas::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  for (const wxXmlNode* child = node.GetChildren(); child; child = child->GetNext()) {
    wxString type;
    xml::ReadText(*child, "type", type);
    if (const orlo::P<CXData> data = CXData::Create(type)) {
      data->ReadFromXml(*child, store);
      Set(child->GetName(), data);
    }
  }
}

orlo::P<CXData> CXDatas::Get(const wxString& name) const {
  const auto entry = entries_.find(name);
  return entry == entries_.end() ? nullptr : entry->second;
}

bool CXDatas::IsEmpty() const {
  return std::all_of(entries_.begin(), entries_.end(), [](const auto& entry) { return !entry.second; });
}

orlo::P<CXDatas> CXDatas::Clone() const {
  auto copy = orlo::makeObject<CXDatas>();
  for (const auto& [name, data] : entries_) copy->Set(name, data ? data->Clone() : nullptr);
  return copy;
}

}  // namespace graphics
