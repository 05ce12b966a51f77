#include "graphics/elements/GraphicTable.h"

#include "foundation/StringLocalizer.h"
#include "foundation/wxutil/WXString.h"
#include "graphics/elements/CloneOf.h"
#include "graphics/elements/RichTextPainting.h"
#include "graphics/elements/TablePainter.h"
#include "graphics/geometry/Angles.h"
#include "graphics/geometry/Margins.h"
#include "graphics/paint/EffectDC.h"

#include <wx/richtext/richtextbuffer.h>

#include <algorithm>

namespace graphics {

namespace {

constexpr double kLowestRow = 4.0;

template <class Object>
orlo::P<Object> CopyFor(CGraphicTable* table, const orlo::P<Object>& source) {
  if (!source) return nullptr;
  auto copy = orlo::makeObject<Object>(table);
  copy->Assign(*source);
  return copy;
}

template <class Objects>
void Detach(const Objects& objects) {
  for (const auto& object : objects)
    if (object) object->table = nullptr;
}

CDoubleRect Shrunk(const CDoubleRect& rect, double margin) {
  return {rect.left + margin, rect.top + margin, rect.width - 2 * margin, rect.height - 2 * margin};
}

}  // namespace

CGraphicTable::~CGraphicTable() {
  CGraphicTable::ClearContent();
}

void CGraphicTable::ClearContent() {
  Detach(rows_);
  Detach(cols_);
  for (const auto& row : cells_) Detach(row);
  rows_.clear();
  cols_.clear();
  cells_.clear();
  contentSize_ = {};
  layoutDirty_ = true;
}

CGraphicTable::CCell* CGraphicTable::FindCell(std::size_t row, std::size_t col) const {
  return row < cells_.size() && col < cells_[row].size() ? cells_[row][col].get() : nullptr;
}

void CGraphicTable::SetDirty() {
  layoutDirty_ = true;
  NotifyChanged();
}

CDoubleSize CGraphicTable::GetSize() const {
  double width = 0;
  for (const auto& col : cols_)
    if (col->visible) width += col->width;
  return {width, CGraphicElement::GetSize().height};
}

void CGraphicTable::SetSize(CDoubleSize size) {
  constexpr double kSameWidth = 0.0001;
  const double total = GetSize().width;
  if (IsNear(total, size.width, kSameWidth)) {
    CGraphicElement::SetSize(size);
    return;
  }
  CGraphicElement::SetSize({0, size.height});
  // Without a visible width there is nothing to be in proportion to.
  if (total != 0.0)
    for (const auto& col : cols_) col->width *= size.width / total;
  SetDirty();
}

void CGraphicTable::LayOut(CEffectDC& dc, CDoubleSize scale) {
  contentSize_ = {};
  for (const auto& col : cols_)
    if (col->visible) contentSize_.x = LayOutCol(*col, contentSize_.x);
  for (std::size_t row = 0; row < rows_.size(); ++row) contentSize_.y = LayOutRow(row, contentSize_.y, dc, scale);
  PlaceCells();
  layoutDirty_ = false;
}

double CGraphicTable::LayOutCol(CCol& col, double left) {
  col.actualWidth = col.width;
  col.position = {left + col.width, 0};
  return col.position.x;
}

double CGraphicTable::LayOutRow(std::size_t index, double top, CEffectDC& dc, CDoubleSize scale) {
  CRow& row = *rows_[index];
  double height = row.height;
  for (std::size_t i = 0; i < cols_.size(); ++i) {
    const CCell* const cell = cols_[i]->visible ? FindCell(index, i) : nullptr;
    if (!cell || !cell->GetBuffer()) continue;
    // A height doesn't change where lines break, so that this layout holds for the final height too.
    const CDoubleSize room{cols_[i]->actualWidth - 2 * cell->margin, height - 2 * cell->margin};
    const wxSize needed = LayOutRichText(*cell->GetBuffer(), dc, CCell::TextBox(room, scale));
    const double text = needed.y / scale.height;
    if (text > room.height) height = text + 2 * cell->margin;
  }
  row.actualHeight = height > kLowestRow ? height : kLowestRow;
  row.position = {contentSize_.x, top + row.actualHeight};
  return row.position.y;
}

void CGraphicTable::PlaceCells() {
  double top = 0;
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    const double height = rows_[row]->actualHeight;
    double left = 0;
    for (std::size_t i = 0; i < cols_.size() && row < cells_.size() && !cells_[row].empty(); ++i) {
      if (!cols_[i]->visible) continue;
      const double width = cols_[i]->actualWidth;
      if (CCell* const cell = FindCell(row, i)) {
        cell->rect = {left, top, width, height};
        cell->textRect = Shrunk(cell->rect, cell->margin);
      }
      left += width;
    }
    top += height;
  }
}

void CGraphicTable::Paint(CPaintContext& context) {
  CTablePainter(*this, context).Paint();
}

wxString CGraphicTable::GetText() const {
  constexpr unsigned kHintsAllowed = 5;
  if (GetPlainText().empty() && HasFlag(kHintsAllowed))
    return wxutil::toWxString(
        orlo::localize("graphics.CGraphicElement.ClickToEditTable", "Double click to edit table"));
  return GetPlainText();
}

void CGraphicTable::Assign(const CGraphicBase& other) {
  const auto* const table = dynamic_cast<const CGraphicTable*>(&other);
  if (table == this) return;
  CGraphicElement::Assign(other);
  if (!table) return;
  ClearContent();
  for (const auto& row : table->rows_) rows_.push_back(CopyFor(this, row));
  for (const auto& col : table->cols_) cols_.push_back(CopyFor(this, col));
  for (const auto& row : table->cells_) {
    auto& cells = cells_.emplace_back();
    for (const auto& cell : row) cells.push_back(CopyFor(this, cell));
  }
  contentSize_ = table->contentSize_;
}

orlo::P<CGraphicElement> CGraphicTable::Clone() const {
  return CloneOf(*this);
}

}  // namespace graphics
