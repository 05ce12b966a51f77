#include "foundation/Cast.h"
#include "graphics/geometry/XmlGeometry.h"
#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlValues.h"
#include "graphics/model/ElementFactory.h"
#include "graphics/model/GraphicContainer.h"
#include "graphics/model/GraphicType.h"
#include "graphics/model/ResourceStore.h"

namespace graphics {

namespace {

constexpr char kTableContent[] = "table-content";

/// The toolkit gives its text nodes the name of an element kind, "text".
bool IsElement(const wxXmlNode& node) {
  return node.GetType() == wxXML_ELEMENT_NODE && (IsGraphicType(node.GetName()) || node.GetName() == kTableContent);
}

}  // namespace

void CGraphicContainer::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) {
  xml::WriteInt(node, "version", 1);
  xml::WriteRect(node, "bounding-box", GetBoundingBox());
  if (hasContentBox_) xml::WriteRect(node, "content-box", contentBox_);
  xml::CChildAppender children(node);
  for (const auto& element : elements_) {
    const wxString nodeName = GraphicTypeToXml(element->GetType());
    const wxString typeName = element->GetTypeName();
    store.WriteResource(children.Append(nodeName), typeName.empty() ? nodeName : typeName, element.get());
  }
  if (xdatas_ && !xdatas_->IsEmpty()) xdatas_->WriteToXml(children.Append("xdata"), store);
}

void CGraphicContainer::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  BeginUpdate();
  formerElements_.insert(formerElements_.end(), elements_.begin(), elements_.end());
  elements_.clear();
  hasContentBox_ = xml::ReadRect(node, "content-box", contentBox_);
  for (const wxXmlNode* child = node.GetChildren(); child; child = child->GetNext())
    if (IsElement(*child)) ReadElement(*child, store);
  if (const wxXmlNode* data = xml::FindChild(node, "xdata")) {
    xdatas_ = orlo::makeObject<CXDatas>();
    xdatas_->ReadFromXml(*data, store);
  }
  EndUpdate();
}

void CGraphicContainer::ReadElement(const wxXmlNode& child, IResourceInputStore& store) {
  std::int32_t type = GraphicType::kTable;
  wxString typeName = kTableContent;
  if (child.GetName() != kTableContent) {
    type = GraphicTypeFromXml(child.GetName());
    typeName.clear();
    xml::ReadText(child, "type-name", typeName);
    if (typeName.empty()) typeName = store.GetResourceType(child);
  }
  orlo::P<CGraphicElement> element;
  if (!typeName.empty()) element = NewInstance(typeName);
  if (!element) element = NewInstanceOfType(type);
  wxString key = store.GetResourceType(child);
  if (key.empty()) key = typeName;
  Add(orlo::tryCast<CGraphicElement>(store.ReadResource(child, key, element)));
}

}  // namespace graphics
