#pragma once

#include "graphics/elements/TableObjects.h"
#include "graphics/model/GraphicElement.h"
#include "graphics/model/GraphicType.h"

#include <cstddef>
#include <vector>

namespace graphics {

class CEffectDC;

/// Rows times columns of a table.
constexpr std::size_t kMaxTableCells = 100'000;

/// A grid of cells with rich text. The columns have the widths that they are given, the rows grow with their texts when
/// they are laid out. What reaches out of the frame is cut off.
class CGraphicTable : public CGraphicElement {
public:
  using CTableObject = graphics::CTableObject;
  using CRow = CTableRow;
  using CCol = CTableCol;
  using CCell = CTableCell;
  using Rows = std::vector<orlo::P<CRow>>;
  using Cols = std::vector<orlo::P<CCol>>;
  using Cells = std::vector<std::vector<orlo::P<CCell>>>;

  CGraphicTable() = default;
  ~CGraphicTable() override;

  /// Whoever changes one of the three keeps a vector of cells a row, gives each object this table, and calls SetDirty.
  Rows& GetRows() { return rows_; }
  const Rows& GetRows() const { return rows_; }
  Cols& GetCols() { return cols_; }
  const Cols& GetCols() const { return cols_; }
  /// A cell a column. A row that nobody has given cells may have none.
  Cells& GetCells() { return cells_; }
  const Cells& GetCells() const { return cells_; }
  /// Null if there is none.
  CCell* FindCell(std::size_t row, std::size_t col) const;

  bool IsLayoutDirty() const { return layoutDirty_; }
  void SetLayoutDirty() { layoutDirty_ = true; }
  /// Rows are laid out anew when painted next; the listeners are told.
  void SetDirty();
  /// The sums of the visible columns' widths and of the rows' heights, as laid out last.
  CDoublePoint GetContentSize() const { return contentSize_; }
  /// In the given scale of pixels per page unit.
  void LayOut(CEffectDC& dc, CDoubleSize scale);

  /// As wide as its visible columns.
  CDoubleSize GetSize() const override;
  /// A new width is shared out among all columns in proportion to theirs.
  void SetSize(CDoubleSize size) override;
  void Paint(CPaintContext& context) override;
  bool IsContentEmpty() const override { return rows_.empty(); }
  wxString GetText() const override;
  void ClearContent() override;
  void Assign(const CGraphicBase& other) override;
  orlo::P<CGraphicElement> Clone() const override;
  std::int32_t GetType() const override { return GraphicType::kTable; }
  void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const override;
  /// Throws wxutil::CWXError for an unknown alignment or too many cells.
  void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) override;

private:
  double LayOutCol(CCol& col, double left);
  double LayOutRow(std::size_t index, double top, CEffectDC& dc, CDoubleSize scale);
  void PlaceCells();
  void ReadCells(const wxXmlNode& node, IResourceInputStore& store);

  Rows rows_;
  Cols cols_;
  Cells cells_;
  bool layoutDirty_ = true;
  CDoublePoint contentSize_;
};

}  // namespace graphics
