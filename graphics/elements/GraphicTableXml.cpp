#include "foundation/wxutil/WXError.h"
#include "graphics/elements/GraphicTable.h"
#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlValues.h"

#include <functional>

namespace graphics {

namespace {

void WriteRow(wxXmlNode& node, const CTableRow& row) {
  xml::WriteDouble(node, "height", row.height);
  if (!row.contentId.empty()) xml::WriteText(node, "content-id", row.contentId);
}

void ReadRow(const wxXmlNode& node, CTableRow& row) {
  xml::ReadDouble(node, "height", row.height);
  xml::ReadText(node, "content-id", row.contentId);
}

void WriteCol(wxXmlNode& node, const CTableCol& col) {
  xml::WriteDouble(node, "width", col.width);
  xml::WriteBool(node, "visible", col.visible);
  if (!col.contentId.empty()) xml::WriteText(node, "content-id", col.contentId);
  xml::WriteText(node, "name", col.name);
  if (col.hiddenByTheme) xml::WriteBool(node, "hidden-by-theme", true);
}

void ReadCol(const wxXmlNode& node, CTableCol& col) {
  xml::ReadDouble(node, "width", col.width);
  xml::ReadBool(node, "visible", col.visible);
  xml::ReadText(node, "content-id", col.contentId);
  xml::ReadText(node, "name", col.name);
  xml::ReadBool(node, "hidden-by-theme", col.hiddenByTheme);
}

/// The child's children of a name; none if there is no such child.
void ForEach(const wxXmlNode& parent, const char* list, const char* name,
             const std::function<void(const wxXmlNode&)>& action) {
  const wxXmlNode* const node = xml::FindChild(parent, list);
  for (const wxXmlNode* child = node ? node->GetChildren() : nullptr; child; child = child->GetNext())
    if (child->GetType() == wxXML_ELEMENT_NODE && xml::IsSameName(child->GetName(), name)) action(*child);
}

}  // namespace

void CGraphicTable::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  CGraphicElement::WriteToXml(node, store);
  if (!rows_.empty()) {
    xml::CChildAppender rows(xml::AppendChild(node, "rows"));
    for (const auto& row : rows_) WriteRow(rows.Append("row"), *row);
  }
  if (!cols_.empty()) {
    xml::CChildAppender cols(xml::AppendChild(node, "cols"));
    for (const auto& col : cols_) WriteCol(cols.Append("col"), *col);
  }
  xml::CChildAppender cells(xml::AppendChild(node, "cells"));
  const CCell untouched;
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    for (std::size_t col = 0; col < cols_.size(); ++col) {
      const CCell* const cell = FindCell(row, col);
      (cell ? *cell : untouched).WriteToXml(cells.Append("cell"), store);
    }
  }
}

void CGraphicTable::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  ClearContent();
  CGraphicElement::ReadFromXml(node, store);
  ForEach(node, "rows", "row", [&](const wxXmlNode& child) {
    rows_.push_back(orlo::makeObject<CRow>(this));
    ReadRow(child, *rows_.back());
  });
  ForEach(node, "cols", "col", [&](const wxXmlNode& child) {
    cols_.push_back(orlo::makeObject<CCol>(this));
    ReadCol(child, *cols_.back());
  });
  if (!cols_.empty() && rows_.size() > kMaxTableCells / cols_.size())
    throw wxutil::CWXError(wxString::Format("A table may have at most %zu cells", kMaxTableCells));
  cells_.resize(rows_.size());
  ReadCells(node, store);
}

void CGraphicTable::ReadCells(const wxXmlNode& node, IResourceInputStore& store) {
  std::size_t index = 0;
  ForEach(node, "cells", "cell", [&](const wxXmlNode& child) {
    if (index >= rows_.size() * cols_.size()) return;
    auto& row = cells_[index / cols_.size()];
    row.push_back(orlo::makeObject<CCell>(this));
    row.back()->ReadFromXml(child, store);
    ++index;
  });
  if (cols_.empty() || index % cols_.size() == 0) return;
  // The row that the page breaks off in; those below are left without cells, lest a few lines of a page become more of
  // them than there is memory for.
  auto& last = cells_[index / cols_.size()];
  while (last.size() < cols_.size()) last.push_back(orlo::makeObject<CCell>(this));
}

}  // namespace graphics
