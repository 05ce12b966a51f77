#include "graphics/elements/TablePainter.h"

#include "foundation/StringLocalizer.h"
#include "foundation/wxutil/WXString.h"
#include "graphics/art/CentredHint.h"
#include "graphics/art/SkinManager.h"
#include "graphics/elements/ElementBox.h"
#include "graphics/elements/ElementTransform.h"
#include "graphics/elements/FrameOutline.h"
#include "graphics/elements/RichTextPainting.h"
#include "graphics/elements/TextPlace.h"
#include "graphics/geometry/Angles.h"
#include "graphics/paint/PixelRange.h"
#include "graphics/paint/native/NativeState.h"

#include <wx/richtext/richtextbuffer.h>

#include <algorithm>
#include <cmath>

namespace graphics {

namespace {

/// What the desktop would say selected text stands on, where there is one to be asked.
const wxColour kHighlight(51, 153, 255);

CDoubleRect PixelsOf(const CDoubleRect& rect, const CMatrix& toDevice) {
  return toDevice.MapPoints(CRectPoints::FromRect(rect)).BoundingRect().Inflated();
}

/// Grown by its own size on every side: a text may reach out of its cell.
CDoubleRect WithSurroundings(const CDoubleRect& rect) {
  return {rect.left - rect.width, rect.top - rect.height, 3 * rect.width, 3 * rect.height};
}

double AlignedBy(const CTableCell& cell, double textHeight) {
  const double room = cell.textRect.height - textHeight;
  if (cell.verticalAlign == VerticalAlign::kCenter) return room * 0.5;
  return cell.verticalAlign == VerticalAlign::kBottom ? room : 0.0;
}

}  // namespace

CTablePainter::CTablePainter(CGraphicTable& table, CPaintContext& context)
    : table_(table), context_(context), scale_(context.GetDeviceScale()) {}

void CTablePainter::Paint() {
  if (table_.IsContentEmpty()) {
    if (context_.ShowsFrames()) PaintHint();
    return;
  }
  PaintContent();
  if (!context_.ShowsFrames()) return;
  constexpr unsigned kAlwaysFramed = 2;
  context_.dc->SetBrush(*wxTRANSPARENT_BRUSH);
  if (table_.HasFlag(kAlwaysFramed)) DrawFrameOutline(context_, table_, CSkinManager::GetInstance().GetFrameColour(1));
}

void CTablePainter::PaintHint() const {
  const CDoubleRect box = BoxOf(table_, context_);
  context_.dc->SetPen(wxPen(CSkinManager::GetInstance().GetFrameColour(1), 1, wxPENSTYLE_SOLID));
  context_.dc->SetBrush(*wxTRANSPARENT_BRUSH);
  context_.dc->DrawRectangle(ToPixelRect(box));
  const wxString hint =
      wxutil::toWxString(orlo::localize("graphics.GraphicTable.ClickToEdit", "Double click to edit!"));
  DrawCentredHint(*context_.dc, hint, box, false);
}

void CTablePainter::PaintContent() {
  CSmoothEffectDC dc(*context_.dc);
  if (!dc.GetGraphicsContext()) return;
  dc.SetFontCaching(true);
  dc.SetScalableText(true);
  dc.SetGreyscale(!table_.IsColoured());
  const auto target = dc.CreateEffectContext();
  CNativeState state(target->GetNativeContext());
  if (!context_.highQuality) state.SetSmoothing(ESmoothing::fast);

  if (table_.IsLayoutDirty()) table_.LayOut(dc, scale_);
  const CDoublePoint content = table_.GetContentSize();
  CPaintToDC grid(&dc, context_.matrix, &table_, FrameOf(table_), {0, 0, content.x, content.y});
  if (!ShowsAll()) ClipToFrame(dc, *target);
  dc.SetFont(wxFont(wxFontInfo(10).Bold().FaceName("Arial")));
  PaintCells(dc, *target, grid.GetMatrix());
  PaintGrid(grid);
  dc.Flush();
}

void CTablePainter::ClipToFrame(CEffectDC& dc, TEffectGraphicsContext& target) const {
  CDoubleRect frame = FrameOf(table_);
  // Room for the line below the last row.
  frame.height += 1.0;
  const wxGraphicsMatrix upright = target.GetTransform();
  target.SetTransform(TurnedAbout(target, context_.matrix.MapRect(FrameOf(table_)).GetCenter(), table_));
  wxRect box = ToPixelRect(context_.matrix.MapRect(frame).Inflated());
  // Lines are drawn at the pixel that begins on them, which lies outside where a table is turned or mirrored.
  if (table_.GetRotation() != 0.0 || table_.GetMirror(0) || table_.GetMirror(1)) box.Inflate(1);
  dc.SetClippingRegion(box);
  target.SetTransform(upright);
}

CDoubleRect CTablePainter::SeenRect(const CEffectDC& dc) const {
  const wxSize size = dc.GetSize();
  const CDoubleRect surface{0, 0, static_cast<double>(size.x), static_cast<double>(size.y)};
  return ShowsAll() ? surface : surface.Intersect(OutlineOf(table_, context_).BoundingRect().Inflated());
}

void CTablePainter::PaintCells(CEffectDC& dc, TEffectGraphicsContext& target, const CMatrix& toDevice) const {
  const CDoubleRect seen = SeenRect(dc);
  const auto& cols = table_.GetCols();
  for (std::size_t row = 0; row < table_.GetCells().size(); ++row) {
    for (std::size_t col = 0; col < std::min(cols.size(), table_.GetCells()[row].size()); ++col) {
      const CTableCell* const cell = cols[col]->visible ? table_.FindCell(row, col) : nullptr;
      if (!cell || (!cell->GetBuffer() && !cell->selected)) continue;
      const CDoubleRect box = PixelsOf(cell->rect, toDevice);
      if (WithSurroundings(box).Intersects(seen)) PaintCell(*cell, box.GetCenter(), dc, target);
    }
  }
}

void CTablePainter::PaintCell(const CTableCell& cell, CDoublePoint centre, CEffectDC& dc,
                              TEffectGraphicsContext& target) const {
  const wxRect rect = CTableCell::TextBox(cell.textRect.GetSize(), scale_);
  const auto turnedAndBack = [&](wxGraphicsMatrix& matrix) {
    if (!IsZero(table_.GetRotation(), 0.0001)) matrix.Rotate(DegToRad(table_.GetRotation()));
    matrix.Translate(-rect.width / 2.0, -rect.height / 2.0);
  };
  target.PushState();
  wxGraphicsMatrix box = TextPlace(target, centre, context_, table_);
  wxGraphicsMatrix text = box;
  if (cell.selected) {
    turnedAndBack(box);
    target.SetTransform(box);
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(wxBrush(kHighlight));
    dc.DrawRectangle(rect);
  }
  if (wxRichTextBuffer* const buffer = cell.GetBuffer()) {
    const double textHeight = buffer->GetCachedSize().y / scale_.height;
    // Before the turn: texts are aligned down the page however the table lies on it.
    text.Translate(0, AlignedBy(cell, textHeight) * scale_.height);
    turnedAndBack(text);
    target.SetTransform(text);
    DrawRichText(*buffer, dc, rect);
  }
  target.PopState();
}

void CTablePainter::PaintGrid(CPaintToDC& grid) {
  constexpr double kInFrameFrom = 5.0;
  constexpr double kRounding = 1.0e-6;
  grid.SetPen(wxPen(wxColour(128, 128, 128), 1, wxPENSTYLE_DOT));
  grid.SetBrush(*wxTRANSPARENT_BRUSH);
  const CDoublePoint content = table_.GetContentSize();
  const CDoubleSize size = table_.GetSize();
  const auto isInFrame = [&](double bottom) {
    return std::abs(kInFrameFrom - content.x * 0.5) <= size.width * 0.5 + kRounding &&
           std::abs(bottom - content.y * 0.5) <= size.height * 0.5 + kRounding;
  };
  DrawGridLine(grid, {0, 0}, {content.x, 0});
  DrawGridLine(grid, {0, 0}, {0, content.y});
  for (const auto& row : table_.GetRows()) {
    const double bottom = row->position.y;
    if (ShowsAll() || isInFrame(bottom)) DrawGridLine(grid, {0, bottom}, {content.x, bottom});
  }
  for (const auto& col : table_.GetCols())
    if (col->visible) DrawGridLine(grid, {col->position.x, 0}, {col->position.x, content.y});
}

void CTablePainter::DrawGridLine(CPaintToDC& grid, CDoublePoint from, CDoublePoint to) {
  const std::array<wxPoint, 2> line{FloorToPixel(grid.matrix.MapPoint(from)), FloorToPixel(grid.matrix.MapPoint(to))};
  const wxPoint topLeft(std::min(line[0].x, line[1].x), std::min(line[0].y, line[1].y));
  const wxPoint bottomRight(std::max(line[0].x, line[1].x), std::max(line[0].y, line[1].y));
  // Of a table with more lines than pixels, no pixel is drawn twice by neighbours, and what isn't seen not at all.
  if (line == lastLine_ || !wxRect(topLeft, bottomRight).Intersects(wxRect(grid.dc->GetSize()))) return;
  lastLine_ = line;
  grid.DrawLine(from.x, from.y, to.x, to.y);
}

}  // namespace graphics
