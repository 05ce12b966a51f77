#include "graphics/elements/TableObjects.h"

#include "foundation/wxutil/WXError.h"
#include "graphics/art/SkinManager.h"
#include "graphics/elements/GraphicTable.h"
#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlValues.h"
#include "graphics/model/ResourceStore.h"
#include "graphics/paint/PixelRange.h"

#include <wx/richtext/richtextbuffer.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace graphics {

namespace {

constexpr const char* kAttachment = "attachment-richtextbuffer";
constexpr std::array<const char*, 3> kAlignments{"top", "center", "bottom"};

template <class Object>
orlo::P<CTableObject> CopyOf(const Object& object) {
  orlo::P<CTableObject> copy;
  copy.attach(new Object());
  copy->Assign(object);
  return copy;
}

}  // namespace

wxString VerticalAlignToXml(std::int32_t align) {
  const auto index = static_cast<std::size_t>(align);
  return align >= 0 && index < kAlignments.size() ? kAlignments[index] : "unknown";
}

std::int32_t VerticalAlignFromXml(const wxString& text) {
  for (std::size_t i = 0; i < kAlignments.size(); ++i)
    if (xml::IsSameName(text, kAlignments[i])) return static_cast<std::int32_t>(i);
  throw wxutil::CWXError("VerticalAlignFromXml. Unknown Align String");
}

void CTableObject::Assign(const CTableObject& other) {
  position = other.position;
}

void CTableObject::SetTableDirty() {
  if (table) table->SetLayoutDirty();
}

void CTableRow::Assign(const CTableObject& other) {
  const auto* const row = dynamic_cast<const CTableRow*>(&other);
  if (!row) return;
  CTableObject::Assign(other);
  height = row->height;
  actualHeight = row->actualHeight;
  contentId = row->contentId;
  SetTableDirty();
}

orlo::P<CTableObject> CTableRow::Clone() const {
  return CopyOf(*this);
}

void CTableCol::Assign(const CTableObject& other) {
  const auto* const col = dynamic_cast<const CTableCol*>(&other);
  if (!col) return;
  CTableObject::Assign(other);
  width = col->width;
  visible = col->visible;
  hiddenByTheme = col->hiddenByTheme;
  contentId = col->contentId;
  name = col->name;
  actualWidth = col->actualWidth;
  SetTableDirty();
}

orlo::P<CTableObject> CTableCol::Clone() const {
  return CopyOf(*this);
}

CTableCell::CTableCell(CGraphicTable* owner) : CTableObject(owner) {}

CTableCell::~CTableCell() = default;

void CTableCell::Assign(const CTableObject& other) {
  const auto* const cell = dynamic_cast<const CTableCell*>(&other);
  if (!cell || cell == this) return;
  CTableObject::Assign(other);
  rect = cell->rect;
  textRect = cell->textRect;
  margin = cell->margin;
  verticalAlign = cell->verticalAlign;
  contentId = cell->contentId;
  selected = cell->selected;
  SetBuffer(cell->GetBuffer());
}

orlo::P<CTableObject> CTableCell::Clone() const {
  return CopyOf(*this);
}

void CTableCell::SetBuffer(const wxRichTextBuffer* source) {
  buffer_ = source ? CSkinManager::GetInstance().CreateTextBuffer(source) : nullptr;
  SetTableDirty();
}

wxRect CTableCell::TextBox(CDoubleSize textSize, CDoubleSize scale) {
  const wxRect box = ToPixelRect({0, 0, textSize.width * scale.width, textSize.height * scale.height});
  return {0, 0, std::max(box.width, 1), std::max(box.height, 0)};
}

void CTableCell::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  if (buffer_) store.WriteRichText(node, kAttachment, *buffer_);
  xml::WriteDouble(node, "margin", margin);
  if (!contentId.empty()) xml::WriteText(node, "content-id", contentId);
  xml::WriteText(node, "vertical-align", VerticalAlignToXml(verticalAlign));
}

void CTableCell::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  buffer_ = store.ReadRichText(node, kAttachment);
  if (buffer_) CSkinManager::GetInstance().GiveDefaultStyle(*buffer_);
  xml::ReadDouble(node, "margin", margin);
  xml::ReadText(node, "content-id", contentId);
  if (wxString align; xml::ReadText(node, "vertical-align", align)) verticalAlign = VerticalAlignFromXml(align);
}

}  // namespace graphics
