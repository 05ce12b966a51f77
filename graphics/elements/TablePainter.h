#pragma once

#include "graphics/elements/GraphicTable.h"
#include "graphics/model/PaintToDC.h"
#include "graphics/paint/EffectDC.h"
#include "graphics/paint/PaintContext.h"

#include <array>

namespace graphics {

/// Paints one table once.
class CTablePainter {
public:
  CTablePainter(CGraphicTable& table, CPaintContext& context);

  void Paint();

private:
  void PaintContent();
  void ClipToFrame(CEffectDC& dc, TEffectGraphicsContext& target) const;
  CDoubleRect SeenRect(const CEffectDC& dc) const;
  void PaintCells(CEffectDC& dc, TEffectGraphicsContext& target, const CMatrix& toDevice) const;
  void PaintCell(const CTableCell& cell, CDoublePoint centre, CEffectDC& dc, TEffectGraphicsContext& target) const;
  void PaintGrid(CPaintToDC& grid);
  void DrawGridLine(CPaintToDC& grid, CDoublePoint from, CDoublePoint to);
  void PaintHint() const;
  bool ShowsAll() const { return context_.viewMode == 5; }

  CGraphicTable& table_;
  CPaintContext& context_;
  const CDoubleSize scale_;
  /// The line of the grid that was drawn last, in pixels.
  std::array<wxPoint, 2> lastLine_{};
};

}  // namespace graphics
