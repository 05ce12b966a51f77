#pragma once

#include "foundation/Object.h"
#include "foundation/Pointer.h"
#include "graphics/geometry/DoublePoint.h"
#include "graphics/geometry/DoubleRect.h"
#include "graphics/geometry/DoubleSize.h"

#include <wx/gdicmn.h>
#include <wx/string.h>

#include <cstdint>
#include <memory>

class wxRichTextBuffer;
class wxXmlNode;

namespace graphics {

class CGraphicTable;
class IResourceInputStore;
class IResourceOutputStore;

/// A row, a column or a cell of a table. Lengths are page units; places are set when the table is laid out.
class CTableObject : public orlo::CObject {
public:
  explicit CTableObject(CGraphicTable* owner) : table(owner) {}

  /// Copies everything but the table; nothing if the other one is of another class.
  virtual void Assign(const CTableObject& other);
  /// Belongs to no table.
  virtual orlo::P<CTableObject> Clone() const = 0;

  CDoublePoint position;
  /// Not owned; null once the table is gone.
  CGraphicTable* table;

protected:
  void SetTableDirty();
};

class CTableRow : public CTableObject {
public:
  explicit CTableRow(CGraphicTable* owner = nullptr) : CTableObject(owner) {}
  void Assign(const CTableObject& other) override;
  orlo::P<CTableObject> Clone() const override;

  /// The wanted height, and the one that the texts need.
  double height = 0;
  double actualHeight = 0;
  wxString contentId;
};

class CTableCol : public CTableObject {
public:
  explicit CTableCol(CGraphicTable* owner = nullptr) : CTableObject(owner) {}
  void Assign(const CTableObject& other) override;
  orlo::P<CTableObject> Clone() const override;

  double width = 0;
  bool visible = true;
  bool hiddenByTheme = false;
  wxString contentId;
  wxString name;
  double actualWidth = 0;
};

namespace VerticalAlign {
constexpr std::int32_t kTop = 0;
constexpr std::int32_t kCenter = 1;
constexpr std::int32_t kBottom = 2;
}  // namespace VerticalAlign

/// "unknown" for a number that is no alignment.
wxString VerticalAlignToXml(std::int32_t align);
/// Without regard to case. Throws wxutil::CWXError for a text that is no alignment.
std::int32_t VerticalAlignFromXml(const wxString& text);

class CTableCell : public CTableObject {
public:
  explicit CTableCell(CGraphicTable* owner = nullptr);
  ~CTableCell() override;
  void Assign(const CTableObject& other) override;
  orlo::P<CTableObject> Clone() const override;

  wxRichTextBuffer* GetBuffer() const { return buffer_.get(); }
  /// A copy in the default style; null takes the text away.
  void SetBuffer(const wxRichTextBuffer* source);

  /// What the text is laid out in, in pixels of the given scale; at least a pixel wide.
  static wxRect TextBox(CDoubleSize textSize, CDoubleSize scale);

  void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const;
  void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store);

  /// The cell, and without its margin, in the table's content.
  CDoubleRect rect;
  CDoubleRect textRect;
  double margin = 0;
  std::int32_t verticalAlign = VerticalAlign::kTop;
  wxString contentId;
  bool selected = false;

private:
  std::unique_ptr<wxRichTextBuffer> buffer_;
};

}  // namespace graphics
